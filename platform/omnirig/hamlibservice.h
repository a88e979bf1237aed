#pragma once

#include "platform/omnirig/omnirig.h"
#include "platform/omnirig/riglink.h"
#include "platform/omnirig/rigsettings.h"

#include <QPointer>

#include <array>
#include <memory>

namespace platform {

class RigDialog;

/// The rig service over Hamlib's rigctld: four lines to radios, and the settings they go by.
class HamlibService : public OmniRigX {
public:
    /// Reaches for the radios that are set. Settings that cannot be read give a message, and the defaults.
    HamlibService();
    ~HamlibService() override;

    int InterfaceVersion() const override;
    RigX& Rig(int number) override;
    void ShowDialog(QWidget* over) override;

    /// What is saved, whatever is being tried out.
    const AllRigSettings& Settings() const { return settings_; }
    /// What a rig goes by now.
    const RigSettings& InUse(int rig) const { return inUse_.at(static_cast<size_t>(rig - 1)); }
    /// Lets a rig go by other settings for the time being.
    void TryOut(int rig, const RigSettings& settings);
    /// Keeps these settings, and lets all rigs go by them. @throws Failure if they cannot be written
    void Save(const AllRigSettings& settings);
    /// Ends what is being tried out.
    void Revert();
    /// @param number 1 to 4
    RigLink& Link(int number);

private:
    class Radio;

    AllRigSettings settings_;
    AllRigSettings inUse_;
    std::array<std::unique_ptr<Radio>, 4> radios_;
    QPointer<RigDialog> dialog_;
};

} // namespace platform
