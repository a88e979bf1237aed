#pragma once

#include <QPushButton>

namespace platform {

/// A button of the engine: one that stays down while what it stands for is on, or one that is only pressed.
/// The mouse leaves the focus where it was, in the field that the operator types in.
class XMMVBtn : public QPushButton {
public:
    /// @param caption shown as it is @param name objectName @param stays a switch
    XMMVBtn(const QString& caption, const char* name, bool stays = false);

    /// Red while what it stands for must not be overlooked.
    void Alert(bool on);
};

} // namespace platform
