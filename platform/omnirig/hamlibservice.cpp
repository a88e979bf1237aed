#include "platform/omnirig/hamlibservice.h"

#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/omnirig/rigdialog.h"
#include "platform/paths.h"
#include "platform/textfile.h"
#include "platform/windows.h"

#include <QFile>

namespace platform {

namespace {

QString SettingsFile() { return DataPath(QStringLiteral("INI/OmniRig.ini")); }

AllRigSettings LoadSettings() {
    try {
        if (QFile::exists(SettingsFile())) return RigSettingsFromText(LoadTextFile(SettingsFile()));
    } catch (const Failure&) {
        MsgBox(QStringLiteral("Ett fel har inträffat vid inläsning av ini-filen för radion. "
                              "Värden sätts till standard."),
               QStringLiteral("OmniRig"));
    }
    return DefaultRigSettings();
}

} // namespace

/// A rig as the service's users see it.
class HamlibService::Radio : public RigX {
public:
    QString StatusStr() const override { return link.Status(); }
    qint64 RxFrequency() const override { return link.Frequency(); }
    int Mode() const override { return rigctld::ModeOf(link.Mode()); }
    void Freq(int hertz) override { link.Tune(rigctld::Vfo::Current, hertz); }
    void FreqA(int hertz) override { link.Tune(rigctld::Vfo::A, hertz); }

    RigLink link;
};

HamlibService::HamlibService()
    : settings_(LoadSettings()) {
    for (int number = 1; number <= static_cast<int>(radios_.size()); ++number) {
        auto& radio = radios_[static_cast<size_t>(number - 1)] = std::make_unique<Radio>();
        radio->link.OnStatus([this, number] { StatusChanged(number); });
        radio->link.OnChange([this, number] { ParamsChanged(number, 0); });
    }
    Revert();
}

HamlibService::~HamlibService() { delete dialog_; }

int HamlibService::InterfaceVersion() const {
    // 1.1, the first with all that is in the interface.
    return 0x0101;
}

RigLink& HamlibService::Link(int number) { return radios_.at(static_cast<size_t>(number - 1))->link; }

RigX& HamlibService::Rig(int number) { return *radios_.at(static_cast<size_t>(number - 1)); }

void HamlibService::ShowDialog(QWidget* over) {
    if (!dialog_) dialog_ = new RigDialog(*this, over);
    ShowInFront(*dialog_);
}

void HamlibService::TryOut(int rig, const RigSettings& settings) {
    inUse_.at(static_cast<size_t>(rig - 1)) = settings;
    Link(rig).Use(settings);
}

void HamlibService::Save(const AllRigSettings& settings) {
    SaveTextFile(SettingsFile(), RigSettingsToText(settings));
    settings_ = settings;
    Revert();
}

void HamlibService::Revert() {
    // A rig that goes by its settings already is not disturbed. The others let go first: a port may have
    // gone from one to another.
    std::vector<int> changed;
    for (int rig = 1; rig <= static_cast<int>(settings_.size()); ++rig)
        if (settings_[static_cast<size_t>(rig - 1)] != InUse(rig)) changed.push_back(rig);
    for (const int rig : changed) Link(rig).Use({});
    for (const int rig : changed) TryOut(rig, settings_[static_cast<size_t>(rig - 1)]);
}

// ---- the service as a whole ---------------------------------------------------------------------------

OmniRigSeam& OmniRigs() {
    static OmniRigSeam seam;
    return seam;
}

std::unique_ptr<OmniRigX> CreateOmniRig() {
    if (OmniRigs().create) return OmniRigs().create();
    if (RigctldPath().isEmpty()) throw Failure(QStringLiteral("rigctld finns inte på den här datorn."));
    return std::make_unique<HamlibService>();
}

} // namespace platform
