#include "gui/shell/NumberKeypad.h"

#include "gui/control/FunctionController.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/shell/EntryLine.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace {

constexpr QSize kKey(110, 72);
constexpr int kFootKeyHeight = 56;
constexpr int kFigurePixels = 36;
constexpr int kColumns = 4;
constexpr int kUnitMargin = 12;
constexpr QChar kMicro(0xB5);
constexpr QChar kMinus(0x2212);
constexpr QChar kPlusMinus(0xB1);

/// The keys of hexadecimal figures stand above those of the decimal ones.
int rowsAbove(const NumberEntry& number)
{
    return number.base > 10 ? 2 : 0;
}

} // namespace

NumberKeypad::NumberKeypad(MainWindowBase& window, NumberEntry number)
    : ShellPanel(window, QStringLiteral("rename"), number.title)
    , m_number(std::move(number))
    , m_entry(new EntryLine(wzStyle(), m_number.textOf(m_number.value), &card()))
    , m_range(new QLabel(m_number.rangeText(), &card()))
{
    setCardWidth(kColumns * kKey.width() + (kColumns - 1) * kGap + 2 * kPadding);
    m_range->setObjectName(QStringLiteral("range"));
    m_range->setForegroundRole(QPalette::PlaceholderText);
    contents().addWidget(m_range);
    setupEntry();
    setupKeys();
    setupFoot();
    setFirstFocus(m_entry);
    check();
}

void NumberKeypad::setupEntry()
{
    m_entry->setFont(Fonts::ofPixels(kFigurePixels));
    m_entry->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_entry->setLocale(QLocale::c()); // its point is one everywhere
    m_entry->setMaxLength(20);
    m_entry->setAccessibleName(m_number.title);
    m_entry->offerKeys(m_number.characters());
    auto* const unit = new QLabel(m_number.unit, m_entry);
    unit->setForegroundRole(QPalette::PlaceholderText);
    unit->setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    unit->adjustSize();
    auto* const row = new QHBoxLayout(m_entry);
    row->setContentsMargins(0, 0, kUnitMargin, 0);
    row->addWidget(unit, 0, Qt::AlignRight | Qt::AlignVCenter);
    const int room = m_number.unit.isEmpty() ? 0 : unit->sizeHint().width() + kGap;
    m_entry->setTextMargins(kUnitMargin, 0, kUnitMargin + room, 0);
    m_entry->selectAll();
    contents().addWidget(m_entry);
    connect(m_entry, &EntryLine::textChanged, this, &NumberKeypad::check);
    const auto touched = [this] { m_isUntouched = false; };
    connect(m_entry, &EntryLine::textChanged, this, touched);
    connect(m_entry, &EntryLine::cursorPositionChanged, this, touched);
    connect(m_entry, &EntryLine::returnPressed, this, &NumberKeypad::accept);
}

QPushButton* NumberKeypad::addKey(QGridLayout& grid, int row, int column, const QString& text)
{
    auto* const key = new QPushButton(text, &card());
    key->setFont(Fonts::ofPixels(Fonts::kReadOutPixels));
    key->setFixedHeight(kKey.height());
    key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    key->setFocusPolicy(Qt::TabFocus);
    grid.addWidget(key, row, column);
    return key;
}

void NumberKeypad::addCharacter(QGridLayout& grid, int row, int column, QChar character)
{
    QPushButton* const key = addKey(grid, row, column, QString(character).toUpper());
    connect(key, &QPushButton::clicked, this, [this, character] { type(QString(character)); });
}

void NumberKeypad::addPrefix(QGridLayout& grid, int row, QChar prefix)
{
    QPushButton* const key = addKey(grid, row, kColumns - 1, QString(prefix));
    key->setEnabled(m_number.takesPrefixes());
    connect(key, &QPushButton::clicked, this,
            [this, prefix] { showText(NumberEntry::withPrefix(m_entry->text(), prefix)); });
}

void NumberKeypad::setupKeys()
{
    auto* const grid = new QGridLayout;
    grid->setSpacing(kGap);
    for (int column = 0; column < kColumns; ++column)
        grid->setColumnStretch(column, 1);
    const int top = rowsAbove(m_number);
    const QString letters = m_number.characters().mid(10).remove(QLatin1Char('.'));
    for (int i = 0; i < letters.size(); ++i)
        addCharacter(*grid, i / 3, i % 3, letters[i]);
    for (int digit = 1; digit <= 9; ++digit)
        addCharacter(*grid, top + 2 - (digit - 1) / 3, (digit - 1) % 3, QChar(u'0' + digit));
    QPushButton* const sign = addKey(*grid, top + 3, 0, QString(kPlusMinus));
    sign->setEnabled(m_number.minimum < 0);
    connect(sign, &QPushButton::clicked, this,
            [this] { showText(NumberEntry::withOtherSign(m_entry->text())); });
    addCharacter(*grid, top + 3, 1, QLatin1Char('0'));
    QPushButton* const point = addKey(*grid, top + 3, 2, QStringLiteral("."));
    point->setEnabled(m_number.decimals > 0 || m_number.takesPrefixes());
    connect(point, &QPushButton::clicked, this, [this] { type(QStringLiteral(".")); });
    QPushButton* const erase = addKey(*grid, top, kColumns - 1, {});
    setIcon(erase, QStringLiteral("backspace"));
    erase->setAutoRepeat(true);
    erase->setToolTip(tr("Delete the last character"));
    erase->setAccessibleName(erase->toolTip());
    connect(erase, &QPushButton::clicked, this, [this] {
        FunctionController::sendKeyPressReleaseEvents(m_entry, Qt::Key_Backspace, Qt::NoModifier, {});
    });
    addPrefix(*grid, top + 1, QLatin1Char('m'));
    addPrefix(*grid, top + 2, kMicro);
    addPrefix(*grid, top + 3, QLatin1Char('k'));
    contents().addLayout(grid);
}

void NumberKeypad::setupFoot()
{
    contents().addSpacing(kGap);
    auto* const grid = new QGridLayout;
    grid->setSpacing(kGap);
    const auto add = [this, grid](const QString& text, auto action) {
        QPushButton* const key = addKey(*grid, 0, static_cast<int>(m_limits.size()), text);
        key->setFixedHeight(kFootKeyHeight);
        key->setFont(Fonts::ofPixels(Fonts::kBodyPixels));
        connect(key, &QPushButton::clicked, this, action);
        m_limits.push_back(key);
    };
    add(QStringLiteral("Min"), [this] { showText(m_number.textOf(m_number.minimum)); });
    add(QStringLiteral("Max"), [this] { showText(m_number.textOf(m_number.maximum)); });
    add(QString(kMinus), [this] { step(-1); });
    add(QStringLiteral("+"), [this] { step(1); });
    for (int column = 0; column < kColumns; ++column)
        grid->setColumnStretch(column, 1);
    contents().addLayout(grid);
    QPushButton* const cancel = addCommand(tr("Cancel"), QStringLiteral("close"));
    m_set = addCommand(tr("Set"), QStringLiteral("check"));
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    connect(m_set, &QPushButton::clicked, this, &NumberKeypad::accept);
}

ShellPanel::TriggerList NumberKeypad::functionTriggers()
{
    TriggerList triggers = ShellPanel::functionTriggers();
    for (QPushButton* const key : m_limits)
        triggers.push_back(makeTrigger(key->text(), {}, [key] { key->click(); }));
    return triggers;
}

void NumberKeypad::type(const QString& character)
{
    if (m_isUntouched)
        m_entry->clear();
    const auto key = static_cast<Qt::Key>(character.at(0).toUpper().unicode());
    FunctionController::sendKeyPressReleaseEvents(m_entry, key, Qt::NoModifier, character);
}

/// From what stands there, or from what is now where that is no number.
void NumberKeypad::step(int steps)
{
    const double wanted = m_read.value_or(m_number.value) + steps * m_number.step;
    showText(m_number.textOf(std::clamp(wanted, m_number.minimum, m_number.maximum)));
}

void NumberKeypad::showText(const QString& text)
{
    m_entry->setText(text);
}

void NumberKeypad::check()
{
    const NumberEntry::Reading reading = m_number.read(m_entry->text());
    m_read = reading.number;
    m_range->setText(m_read ? m_number.rangeText() : reading.problem);
    m_range->setForegroundRole(m_read ? QPalette::PlaceholderText : QPalette::BrightText);
    if (m_set->isEnabled() == m_read.has_value())
        return;
    m_set->setEnabled(m_read.has_value());
    updateFunctionTriggers();
}

void NumberKeypad::accept()
{
    if (!m_read)
        return;
    const double number = *m_read;
    close();
    emit chosen(number);
}
