#include "gui/control/NumberEntry.h"

#include "gui/control/Setting.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <array>
#include <cmath>

namespace {

struct Prefix {
    QChar letter;
    double factor;
};

/// Unicode has two micro signs, and a keyboard none: it has a "u".
constexpr std::array kPrefixes{
    Prefix{QChar(u'M'), 1e6},  Prefix{QChar(u'k'), 1e3},
    Prefix{QChar(u'm'), 1e-3}, Prefix{QChar(char16_t(0xB5)), 1e-6},
    Prefix{QChar(u'u'), 1e-6}, Prefix{QChar(char16_t(0x3BC)), 1e-6},
    Prefix{QChar(u'n'), 1e-9},
};

double factorOf(QChar letter)
{
    for (const Prefix& prefix : kPrefixes) {
        if (prefix.letter == letter)
            return prefix.factor;
    }
    return 0;
}

QString translated(const char* text)
{
    return QCoreApplication::translate("NumberEntry", text);
}

} // namespace

NumberEntry NumberEntry::of(const Setting& setting)
{
    const Setting::Range& range = setting.range();
    return {setting.title(), setting.number(), range.minimum, range.maximum,
            range.step,      range.decimals,   range.unit,    range.minimumText};
}

bool NumberEntry::takesPrefixes() const
{
    static const QStringList kUnits{QStringLiteral("Hz"), QStringLiteral("s"), QStringLiteral("V"),
                                    QStringLiteral("UI"), QStringLiteral("bit/s")};
    return base == 10 && kUnits.contains(unit);
}

std::optional<double> NumberEntry::parse(QString text) const
{
    text.remove(QLatin1Char(' '));
    if (!unit.isEmpty() && text.endsWith(unit, Qt::CaseInsensitive))
        text.chop(unit.size());
    bool ok = false;
    if (base != 10) {
        const qlonglong whole = text.toLongLong(&ok, base);
        return ok ? std::optional<double>(static_cast<double>(whole)) : std::nullopt;
    }
    double factor = 1;
    if (takesPrefixes() && !text.isEmpty() && factorOf(text.back()) > 0) {
        factor = factorOf(text.back());
        text.chop(1);
    }
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    const double number = QLocale::c().toDouble(text, &ok) * factor;
    return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

NumberEntry::Reading NumberEntry::read(const QString& text) const
{
    if (!minimumText.isEmpty() && text.trimmed().compare(minimumText, Qt::CaseInsensitive) == 0)
        return {minimum, {}};
    if (text.trimmed().isEmpty())
        return {{}, translated("Enter a number")};
    const auto number = parse(text);
    if (!number)
        return {{}, translated("This is no number")};
    const double steps = base == 10 ? std::pow(10.0, decimals) : 1.0;
    const double rounded = std::round(*number * steps) / steps;
    if (rounded > maximum)
        return {{}, translated("Too large: %1 at most").arg(textWithUnit(maximum))};
    if (rounded < minimum)
        return {{}, translated("Too small: %1 at least").arg(textWithUnit(minimum))};
    if (isValid && !isValid(rounded))
        return {{}, translated("This number cannot be chosen")};
    return {rounded, {}};
}

QString NumberEntry::textOf(double number) const
{
    return base == 10 ? QString::number(number, 'f', decimals)
                      : QString::number(static_cast<qlonglong>(number), base).toUpper();
}

QString NumberEntry::textWithUnit(double number) const
{
    if (!minimumText.isEmpty() && number <= minimum)
        return minimumText;
    return unit.isEmpty() ? textOf(number) : textOf(number) + QLatin1Char(' ') + unit;
}

QString NumberEntry::rangeText() const
{
    const QString least = minimumText.isEmpty() ? textOf(minimum) : minimumText;
    return translated("%1 to %2, now %3").arg(least, textWithUnit(maximum), textWithUnit(value));
}

QString NumberEntry::withOtherSign(const QString& text)
{
    return text.startsWith(QLatin1Char('-')) ? text.mid(1) : QLatin1Char('-') + text;
}

QString NumberEntry::withPrefix(const QString& text, QChar prefix)
{
    QString number = text.trimmed();
    const QChar last = number.isEmpty() ? QChar() : number.back();
    if (factorOf(last) > 0) {
        number.chop(1);
        number = number.trimmed();
    }
    return factorOf(last) == factorOf(prefix) ? number : number + QLatin1Char(' ') + prefix;
}

QString NumberEntry::characters() const
{
    const QString digits = QStringLiteral("0123456789abcdef").left(base);
    return decimals > 0 ? digits + QLatin1Char('.') : digits;
}
