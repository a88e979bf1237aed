#include "platform/widgets.h"

#include "platform/listener.h"
#include "platform/text.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

namespace platform {

QChar UpperCase(QChar typed, const QLineEdit&) { return ToUpper(typed); }

QChar UpperCaseNoBlank(QChar typed, const QLineEdit&) { return typed.isSpace() ? QChar() : ToUpper(typed); }

QChar UpperCaseAtStart(QChar typed, const QLineEdit& field) {
    const int caret = field.hasSelectedText() ? field.selectionStart() : field.cursorPosition();
    return caret == 0 ? ToUpper(typed) : typed;
}

// ---- TextBox ------------------------------------------------------------------------------------------

TextBox::TextBox(QWidget* parent)
    : QLineEdit(parent) {
    // What is pasted or composed passes the same filter as what is typed.
    connect(this, &QLineEdit::textEdited, this, [this](const QString& edited) {
        if (pasted_ == Pasted::AsIs) return;
        const QString mapped = Mapped(edited);
        if (mapped == edited) return;
        const int caret = cursorPosition() - static_cast<int>(edited.size() - mapped.size());
        setText(mapped);
        setCursorPosition(qMax(0, caret));
    });
}

QString TextBox::Mapped(const QString& typed) const {
    if (!keyPress_) return typed;
    QString mapped;
    for (const QChar c : typed)
        if (const QChar m = keyPress_(c, *this); !m.isNull()) mapped += m;
    return mapped;
}

void TextBox::OnChange(std::function<void()> change) {
    connect(this, &QLineEdit::textChanged, this, [change = std::move(change)] { change(); });
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const bool printable = typed.size() == 1 && typed[0].isPrint() &&
                           !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!keyPress_ || !printable) return QLineEdit::keyPressEvent(event);
    const QString mapped = Mapped(typed);
    if (mapped.isEmpty()) return event->accept();
    QKeyEvent changed(event->type(), event->key(), event->modifiers(), mapped, event->isAutoRepeat());
    QLineEdit::keyPressEvent(&changed);
}

void TextBox::inputMethodEvent(QInputMethodEvent* event) {
    // A composed letter is a key like any other; a longer text is as good as pasted.
    const QString typed = event->commitString();
    if (!keyPress_ || typed.size() != 1) return QLineEdit::inputMethodEvent(event);
    QInputMethodEvent changed(event->preeditString(), event->attributes());
    changed.setCommitString(Mapped(typed), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&changed);
}

void TextBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const auto reason = event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason) return;
    // A window that came up on the way from the last field gives the focus as its own going.
    const bool arrives = reason != Qt::ActiveWindowFocusReason || isAway_;
    isAway_ = false;
    if (selectAllOnFocus_ && arrives) {
        selectAll();
        selectOnRelease_ = reason == Qt::MouseFocusReason;
    }
    if (gotFocus_) gotFocus_();
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const auto reason = event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
        reason == Qt::ActiveWindowFocusReason)
        return;
    isAway_ = true;
    if (lostFocus_) lostFocus_();
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    // The press that brought the focus has set the caret; a drag has its own selection.
    if (selectOnRelease_ && !hasSelectedText()) selectAll();
    selectOnRelease_ = false;
}

// ---- ComboBox -----------------------------------------------------------------------------------------

ComboBox::ComboBox(QWidget* parent)
    : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0 || !click_) return;
        changed_ = true;
        click_();
    });
    connect(this, &QComboBox::activated, this, [this](int) {
        if (!changed_ && click_) click_();
        changed_ = false;
    });
}

void ComboBox::Clear() {
    clear();
    clearEditText();
    changed_ = false;
}

void ComboBox::Choose(const QString& text) {
    setCurrentIndex(findText(text));
    Text(text);
}

int ComboBox::Row() const {
    const int row = currentIndex();
    return row >= 0 && itemText(row) == Text() ? row : -1;
}

void ComboBox::Row(int row) {
    if (row == Row()) return;
    // Something else was typed over the row that the list still stands at.
    const bool isSame = row == currentIndex();
    setCurrentIndex(row);
    if (isSame && row >= 0 && click_) click_();
}

void ComboBox::Locked(bool locked) {
    locked_ = locked;
    lineEdit()->setReadOnly(locked);
}

void ComboBox::OnClick(std::function<void()> click) { click_ = std::move(click); }

void ComboBox::showPopup() {
    changed_ = false;
    if (!locked_) QComboBox::showPopup();
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
    if (locked_) return event->ignore();
    changed_ = false;
    QComboBox::keyPressEvent(event);
}

void ComboBox::wheelEvent(QWheelEvent* event) {
    // A wheel that passes over the form must not change band or mode in the middle of a contact.
    if (locked_ || !hasFocus()) return event->ignore();
    changed_ = false;
    QComboBox::wheelEvent(event);
}

// ---- PushButton ---------------------------------------------------------------------------------------

void TextView::mouseDoubleClickEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseDoubleClickEvent(event);
    if (doubleClick_) doubleClick_(cursorForPosition(event->position().toPoint()));
}

void PushButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::RightButton) return QPushButton::mousePressEvent(event);
    event->accept();
    Call(rightPress_);
}

void PushButton::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    // One that comes of the mouse follows the press, which has been answered.
    if (event->reason() == QContextMenuEvent::Keyboard) Call(rightPress_);
}

// ---- ClickLabel ---------------------------------------------------------------------------------------

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (click_ && rect().contains(event->pos())) click_();
}

// ---- QPushButton -------------------------------------------------------------------------------------

QPushButton* NewButton(const char* name, const QString& text) {
    auto* button = Named(new QPushButton(text), name);
    button->setAutoDefault(false);
    return button;
}

// ---- OneLineDelegate ----------------------------------------------------------------------------------

QString OneLineDelegate::displayText(const QVariant& value, const QLocale&) const {
    QString text = value.toString();
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
    return text;
}

// ---- FlexGrid -----------------------------------------------------------------------------------------

FlexGrid::FlexGrid(Qt::Alignment alignment)
    : alignment_(alignment) {
    horizontalHeader()->hide();
    verticalHeader()->hide();
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
}

void FlexGrid::Clear(int rows, int columns) {
    setRowCount(rows);
    setColumnCount(columns);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) Cell(row, column, QString());
}

void FlexGrid::Cell(int row, int column, const QString& text, const QColor& colour) {
    QTableWidgetItem* cell = item(row, column);
    if (!cell) {
        cell = new QTableWidgetItem;
        cell->setTextAlignment(alignment_);
        setItem(row, column, cell);
    }
    if (cell->text() != text) cell->setText(text);
    const QBrush brush = colour.isValid() ? QBrush(colour) : QBrush();
    if (cell->foreground() != brush) cell->setForeground(brush);
}

void FlexGrid::CopyRow(int from, int to) {
    for (int column = 0; column < columnCount(); ++column) {
        const QTableWidgetItem* cell = item(from, column);
        const QBrush brush = cell ? cell->foreground() : QBrush();
        Cell(to, column, Cell(from, column), brush.style() == Qt::NoBrush ? QColor() : brush.color());
    }
}

QString FlexGrid::Cell(int row, int column) const {
    const QTableWidgetItem* cell = item(row, column);
    return cell ? cell->text() : QString();
}

} // namespace platform
