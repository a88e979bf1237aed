#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>

#include <functional>

namespace platform {

/// Changes one typed character; a null character swallows it.
using KeyPress = std::function<QChar(QChar typed, const QLineEdit& field)>;

/// A one-line text field with the four events the procedures hang on.
class TextBox : public QLineEdit {
public:
    explicit TextBox(QWidget* parent = nullptr);

    /// Whether a rule for keys holds for pasted texts too. One that looks at the caret cannot.
    enum class Pasted { Filtered, AsIs };
    /// Set for what is typed or composed, character by character, before it stands in the field.
    void OnKeyPress(KeyPress keyPress, Pasted pasted = Pasted::Filtered) {
        keyPress_ = std::move(keyPress);
        pasted_ = pasted;
    }
    /// After every change of the text, typed or set.
    void OnChange(std::function<void()> change);
    /// The field has received the focus.
    void OnGotFocus(std::function<void()> gotFocus) { gotFocus_ = std::move(gotFocus); }
    /// The focus has gone to another control of the program. Not for a menu, a popup or another program.
    void OnLostFocus(std::function<void()> lostFocus) { lostFocus_ = std::move(lostFocus); }
    /// Focus by key, code or mouse selects the whole text, so that typing replaces it.
    void SelectAllOnFocus() { selectAllOnFocus_ = true; }

    /// True: Tab stops here. The mouse reaches the field either way.
    void TabStop(bool stop) { setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus); }
    bool TabStop() const { return (focusPolicy() & Qt::TabFocus) != 0; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString Mapped(const QString& typed) const;

    KeyPress keyPress_;
    Pasted pasted_ = Pasted::Filtered;
    std::function<void()> gotFocus_;
    std::function<void()> lostFocus_;
    bool selectAllOnFocus_ = false;
    bool selectOnRelease_ = false;
    bool isAway_ = true; ///< another control has had the focus since
};

/// Upper case while typing.
QChar UpperCase(QChar typed, const QLineEdit& field);
/// Upper case while typing, and no blanks.
QChar UpperCaseNoBlank(QChar typed, const QLineEdit& field);
/// Upper case only for a key typed with the caret at the very start of the text.
QChar UpperCaseAtStart(QChar typed, const QLineEdit& field);

/// A drop-down list with an editable text that can be locked: then it shows its text and nothing else.
class ComboBox : public QComboBox {
public:
    explicit ComboBox(QWidget* parent = nullptr);

    /// Empties list and text.
    void Clear();
    void Locked(bool locked);
    bool Locked() const { return locked_; }
    QString Text() const { return currentText(); }
    void Text(const QString& text) { setEditText(text); }
    /// Shows the text, and makes the entry that reads like it the chosen one.
    void Choose(const QString& text);
    /// The row whose text the box shows; -1 once something else stands there.
    int Row() const;
    /// Makes a row the chosen one. One that the box shows already stays without a click.
    void Row(int row);
    /// A choice from the list, by the operator (the same entry too) or by code (a new one alone).
    void OnClick(std::function<void()> click);

    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    std::function<void()> click_;
    bool locked_ = false;
    bool changed_ = false;
};

/// A button that answers a press of the right mouse button too. The menu key does the same, so that the
/// keyboard reaches all that the mouse does.
class PushButton : public QPushButton {
public:
    using QPushButton::QPushButton;
    void OnRightPress(std::function<void()> press) { rightPress_ = std::move(press); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    std::function<void()> rightPress_;
};

/// A text of several lines from which Tab and Shift+Tab lead to one place, whatever stands beside it.
class TextPane : public QPlainTextEdit {
public:
    /// @param next lives as long as the pane
    void TabLeadsTo(QWidget* next) { next_ = next; }

protected:
    bool focusNextPrevChild(bool next) override {
        if (!next_) return QPlainTextEdit::focusNextPrevChild(next);
        next_->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }

private:
    QWidget* next_ = nullptr;
};

/// A text of several lines to read and to pick from.
class TextView : public TextPane {
public:
    /// @param press its argument is the place in the text
    void OnDoubleClick(std::function<void(const QTextCursor& place)> press) {
        doubleClick_ = std::move(press);
    }

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    std::function<void(const QTextCursor&)> doubleClick_;
};

/// A text or picture that answers a click.
class ClickLabel : public QLabel {
public:
    using QLabel::QLabel;
    void OnClick(std::function<void()> click) { click_ = std::move(click); }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    std::function<void()> click_;
};

/// Shows a cell's text on one line, without the control characters that text from outside may hold.
class OneLineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale& locale) const override;
};

/// A small grid of texts without headers of its own: row 0 and column 0 are cells like all others.
class FlexGrid : public QTableWidget {
public:
    /// @param alignment of all its cells
    explicit FlexGrid(Qt::Alignment alignment = Qt::AlignCenter);

    /// Sets the size and empties every cell.
    void Clear(int rows, int columns);
    void Cell(int row, int column, const QString& text, const QColor& colour = {});
    QString Cell(int row, int column) const;
    /// Texts, and their colours where they have one. @pre both rows are there
    void CopyRow(int from, int to);
    /// Makes a row the current one.
    void Row(int row) { setCurrentCell(row, qMax(0, currentColumn())); }
    /// The current row; the first one under the headings as long as none is.
    int Row() const { return currentRow() < 0 ? 1 : currentRow(); }

private:
    Qt::Alignment alignment_;
};

/// A button that Enter presses only if it is made the window's default.
QPushButton* NewButton(const char* name, const QString& text);

/// Gives a widget the name by which tests and tools find it.
template <class W>
W* Named(W* widget, const char* name) {
    widget->setObjectName(QString::fromUtf8(name));
    return widget;
}

} // namespace platform
