#pragma once

#include <QString>

#include <functional>
#include <memory>

class QWidget;

/// The service that knows the operator's radios.
namespace platform {

/// What a rig reports as its mode.
namespace rigmode {
inline constexpr int Unknown = 0;
inline constexpr int CwUpper = 0x00800000;
inline constexpr int CwLower = 0x01000000;
inline constexpr int Usb = 0x02000000;
inline constexpr int Lsb = 0x04000000;
inline constexpr int RttyUpper = 0x08000000;
inline constexpr int RttyLower = 0x10000000;
inline constexpr int Am = 0x20000000;
inline constexpr int Fm = 0x40000000;
} // namespace rigmode

/// One of the service's radios, as it was last heard. No call here waits for the radio.
class RigX {
public:
    virtual ~RigX() = default;

    /// "On-line", or what stands in the way.
    virtual QString StatusStr() const = 0;
    /// The receiver's frequency in hertz; 0 as long as the radio has not told.
    virtual qint64 RxFrequency() const = 0;
    /// One of rigmode.
    virtual int Mode() const = 0;
    /// Tunes the VFO in use. @param hertz 1 and up
    virtual void Freq(int hertz) = 0;
    /// Tunes VFO A. @param hertz 1 and up
    virtual void FreqA(int hertz) = 0;
};

/// The service with its four rigs. It lets go of the radios when it is deleted.
class OmniRigX {
public:
    virtual ~OmniRigX() = default;

    virtual int InterfaceVersion() const = 0;
    /// @param number 1 to 4; the rig lives as long as the service
    virtual RigX& Rig(int number) = 0;
    /// Shows the settings, and returns at once.
    /// @param over the window that it comes up on
    virtual void ShowDialog(QWidget* over) = 0;

    /// StatusStr of the rig with that number has changed.
    void OnStatusChange(std::function<void(int rig)> listener) { statusChange_ = std::move(listener); }
    /// Frequency or mode of the rig with that number has changed.
    /// @param listener its second argument tells what: bits that nobody here reads
    void OnParamsChange(std::function<void(int rig, int params)> listener) {
        paramsChange_ = std::move(listener);
    }

protected:
    void StatusChanged(int rig) const {
        if (statusChange_) statusChange_(rig);
    }
    void ParamsChanged(int rig, int params) const {
        if (paramsChange_) paramsChange_(rig, params);
    }

private:
    std::function<void(int)> statusChange_;
    std::function<void(int, int)> paramsChange_;
};

/// Starts the service. @throws Failure if the machine has none
std::unique_ptr<OmniRigX> CreateOmniRig();

/// What stands in for the service in tests. An unset function starts the real one.
struct OmniRigSeam {
    std::function<std::unique_ptr<OmniRigX>()> create;
};
OmniRigSeam& OmniRigs();

} // namespace platform
