#!/usr/bin/env python3
"""Plays with a radio on the installed program: Hamlib's own daemon with its dummy radio, on the loopback address.

    radio.py --program dist/Sorvik --out dist/tour [--probe FILE]

The operator switches the radio on, sets its address, tests it and saves; the knob is turned, a frequency typed and
a band chosen, the daemon is killed and started again, the radio is switched off. That the choice has tuned the radio
is asked of the radio; with the probe library the program's controls are looked at too. Pictures of every window
stay in the output folder.
"""
import socket
import subprocess
import sys
import time

from driver import perform, wait_for


class Radio:
    """rigctld with its dummy radio, and a hand at the knob."""

    def __init__(self):
        with socket.create_server(("127.0.0.1", 0)) as free:
            self.port = free.getsockname()[1]
        self.start()

    def start(self):
        self.process = subprocess.Popen(["rigctld", "-m", "1", "-T", "127.0.0.1", "-t", str(self.port)],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.line = wait_for("rigctld", self.connect)

    def connect(self):
        try:
            return socket.create_connection(("127.0.0.1", self.port), timeout=5)
        except OSError:
            return None

    def kill(self):
        self.line.close()
        self.process.kill()
        self.process.wait()

    def say(self, command):
        self.line.sendall(command.encode() + b"\n")
        return self.line.recv(200).decode().split()

    def frequency(self):
        return int(self.say("f")[0])


def prepare(folder):
    """No settings but the program's own."""
    (folder / "Data" / "INI" / "OmniRig.ini").unlink(missing_ok=True)


def radio_menu(program, entry):
    program.key("alt+o", *["Down"] * entry, "Return")


def to_form(program):
    """From the radio's window, whichever of the two has the keys."""
    if "Radio" in program.xdotool("getactivewindow", "getwindowname").stdout:
        program.key("Escape")
    program.window("TestSignal:")


def play(program, probe, radio):
    program.fill_in_station("sk7mw", "jo65mr", "2026-12-01")
    program.new_log(9, "radio.svk")
    radio_menu(program, 0)
    program.window("Radio (OmniRig)")
    program.picture("frOmni_utan_radio")

    program.key("space")  # Inställning
    program.window("Radio Inst")
    program.picture("RigDialog")
    if probe:
        wait_for("the address", lambda: ("RigDialog", "txtAdress(1)") in program.controls())
    program.key("alt+a")  # Adress
    program.key("ctrl+a")
    program.type(f"127.0.0.1:{radio.port}")
    program.key("alt+t")  # Test
    if probe:
        wait_for("the radio's answer",
                 lambda: program.text("lblSvar(1)", "RigDialog") == "Radion svarar: 145\xa0000,00 kHz FM")
    program.picture("RigDialog_test")
    program.key("alt+2", "alt+d")  # Rig 2, a radio at this machine
    time.sleep(0.3)  # a button that a key presses takes a moment, and the fields under it wait for it
    program.key("alt+k")  # Sök
    program.type("yaesu ft-99")
    program.picture("RigDialog_radio")
    program.key("ctrl+a")
    program.type("ft-991")
    program.key("alt+i")  # Används inte
    time.sleep(0.3)
    program.key("Return")
    program.window("Radio (OmniRig)")
    program.shows("Label8", "On-line", "frOmni")
    radio.say("M CW 500")
    radio.say("F 14025000")
    program.shows("txtFrekvens", "14,025,00")
    program.shows("lblTrafiksätt", "CW_U", "frOmni")
    to_form(program)
    program.picture("frTest_radio")

    program.key(*["Tab"] * 6)  # Frekvens
    program.type("7,022,50")
    program.key("shift+Tab", "shift+Tab", "Down")  # the next band
    wait_for("the radio to be tuned", lambda: radio.frequency() == 7022500)
    program.shows("Label3", "7,022,50", "frOmni")

    program.key("Escape")
    radio.kill()
    program.shows("Label8", "Rig is not responding", "frOmni")
    program.picture("frOmni_tyst")
    radio.start()
    program.shows("Label8", "On-line", "frOmni")
    program.shows("txtFrekvens", "145,000,00")

    program.type("sm7abc")
    program.key("Escape")
    radio_menu(program, 1)
    program.shows("SBarTest(2)", "Radio")
    program.picture("frTest_radio_av")
    return "radio: 0 differences"


if __name__ == "__main__":
    daemon = Radio()
    try:
        sys.exit(perform(prepare, lambda program, probe: play(program, probe, daemon)))
    finally:
        daemon.kill()
