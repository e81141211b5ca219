#include "gui/shell/TouchKeyboard.h"

#include "gui/control/FunctionController.h"
#include "gui/style/Fonts.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int kGap = 8;
constexpr int kTextKeyHeight = 64;
constexpr QSize kAddressKey(110, 72);
/// Stand for keys without a character.
constexpr QChar kBackspace(0x232B);
constexpr QChar kShift(0x21E7);

} // namespace

TouchKeyboard::TouchKeyboard(Keys keys, QLineEdit* edit, QWidget* parent)
    : QWidget(parent)
    , m_edit(edit)
{
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kGap);
    const auto touched = [this] { m_isUntouched = false; };
    connect(edit, &QLineEdit::textChanged, this, touched);
    connect(edit, &QLineEdit::cursorPositionChanged, this, touched);
    if (keys == Keys::Address) {
        addRows({QStringLiteral("123"), QStringLiteral("456"), QStringLiteral("789"),
                 QStringLiteral(".0") + kBackspace},
                kAddressKey.height());
        for (int column = 0; column < 3; ++column)
            grid->setColumnMinimumWidth(column, kAddressKey.width());
        return;
    }
    const QString signs = keys == Keys::Command ? QStringLiteral("_.") : QStringLiteral("-.");
    addRows({QStringLiteral("1234567890"), QStringLiteral("qwertyuiop"),
             QStringLiteral("asdfghjkl") + kBackspace, kShift + QStringLiteral("zxcvbnm") + signs},
            kTextKeyHeight);
    QPushButton* const space = makeButton(tr("Space"), kTextKeyHeight);
    connect(space, &QPushButton::clicked, this, [this] { send(Qt::Key_Space, QStringLiteral(" ")); });
    grid->addWidget(space, grid->rowCount(), 2, 1, 6);
    shift(keys == Keys::Text);
}

void TouchKeyboard::addRows(const QStringList& rows, int keyHeight)
{
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows[row].size(); ++column)
            addKey(rows[row][column], row, column, keyHeight);
    }
}

QPushButton* TouchKeyboard::makeButton(const QString& text, int keyHeight)
{
    auto* const button = new QPushButton(text, this);
    button->setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    button->setMinimumSize(kAddressKey.width() / 2, keyHeight);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void TouchKeyboard::addKey(QChar character, int row, int column, int keyHeight)
{
    QPushButton* const button = makeButton(QString(character), keyHeight);
    static_cast<QGridLayout*>(layout())->addWidget(button, row, column);
    if (character == kBackspace) {
        button->setAutoRepeat(true);
        button->setToolTip(tr("Delete the last character"));
        connect(button, &QPushButton::clicked, this, [this] { send(Qt::Key_Backspace, {}); });
    } else if (character == kShift) {
        m_shift = button;
        button->setCheckable(true);
        button->setToolTip(tr("Capital letters"));
        connect(button, &QPushButton::clicked, this, &TouchKeyboard::shift);
    } else {
        if (character.isLetter())
            m_letters.append(button);
        connect(button, &QPushButton::clicked, this, [this, button] {
            send(static_cast<Qt::Key>(button->text().at(0).toUpper().unicode()), button->text());
            shift(false);
        });
    }
}

void TouchKeyboard::send(Qt::Key key, const QString& text)
{
    if (m_isUntouched && !text.isEmpty())
        m_edit->clear();
    FunctionController::sendKeyPressReleaseEvents(m_edit, key, Qt::NoModifier, text);
}

/// For the next letter: a name begins with a capital.
void TouchKeyboard::shift(bool shifted)
{
    if (!m_shift)
        return;
    m_shift->setChecked(shifted);
    for (QPushButton* const letter : std::as_const(m_letters))
        letter->setText(shifted ? letter->text().toUpper() : letter->text().toLower());
}
