#include "gui/control/Setting.h"

#include <QJsonArray>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>

namespace {

/// A write that has no answer by then is shown as overdue.
constexpr int kConfirmationMs = 5000;
constexpr QLatin1String kOn("true", 4);
constexpr QLatin1String kOff("false", 5);

} // namespace

Setting::Setting(Kind kind, const QString& title, QObject* parent)
    : QObject(parent)
    , m_kind(kind)
    , m_title(title)
{
}

void Setting::setOptions(std::vector<Option> options)
{
    if (options == m_options)
        return;
    m_options = std::move(options);
    emit changed();
}

void Setting::setRange(const Range& range)
{
    if (range == m_range)
        return;
    m_range = range;
    emit changed();
}

void Setting::setChoicesTexts(const QString& all, const QString& several)
{
    m_allText = all;
    m_severalText = several;
}

QJsonValue Setting::savedState() const
{
    if (m_kind == Kind::Choices)
        return QJsonArray::fromStringList(m_state.values);
    return m_state.values.isEmpty() ? QJsonValue() : QJsonValue(value());
}

void Setting::restore(const QJsonValue& state)
{
    if (m_kind == Kind::Choices && state.isArray()) {
        QStringList known = state.toVariant().toStringList();
        known.erase(std::remove_if(known.begin(), known.end(),
                                   [this](const QString& value) { return !hasOption(value); }),
                    known.end());
        chooseAll(known);
    } else if (m_kind != Kind::Choices && state.isString()) {
        choose(state.toString());
    }
}

bool Setting::isChosen(const QString& option) const
{
    return m_state.values.contains(option) || (option.isEmpty() && m_state.values.isEmpty());
}

QString Setting::textOf(double number) const
{
    if (!m_range.minimumText.isEmpty() && number <= m_range.minimum)
        return m_range.minimumText;
    const QString text = QString::number(number, 'f', m_range.decimals);
    return m_range.unit.isEmpty() ? text : text + QLatin1Char(' ') + m_range.unit;
}

QString Setting::valueText() const
{
    if (m_kind == Kind::Choices && m_state.values.size() != 1)
        return m_state.values.isEmpty() ? m_allText : m_severalText.arg(m_state.values.size());
    if (m_state.values.isEmpty())
        return QStringLiteral("--");
    if (isNumeric())
        return textOf(number());
    if (m_kind == Kind::Toggle)
        return isOn() ? tr("On") : tr("Off");
    const int option = currentOption();
    return option < 0 ? value() : m_options[static_cast<std::size_t>(option)].text;
}

bool Setting::isUsable() const
{
    return !m_isBound || m_kind == Kind::Button || m_state.isUsable();
}

QString Setting::toolTip() const
{
    if (m_isBound && m_state.verdict() == ElementState::Verdict::Unknown)
        return tr("The instrument has not told this yet");
    if (!m_state.active) {
        const QStringList reasons = m_inactiveReasons ? m_inactiveReasons() : QStringList();
        return reasons.isEmpty() ? tr("Not in use now") : reasons.join(QLatin1Char('\n'));
    }
    if (m_overdue)
        return tr("The instrument has not confirmed this");
    return m_state.toolTip();
}

void Setting::choose(const QString& value)
{
    chooseAll({value});
}

void Setting::chooseAll(const QStringList& values)
{
    if (!isUsable() || !canBe(values))
        return;
    if (!m_isBound) {
        if (values == m_state.values)
            return;
        m_state.values = values;
        emit changed();
    }
    emit chosen(values);
}

void Setting::toggle(const QString& option)
{
    if (m_kind == Kind::Toggle) {
        choose(isOn() ? QString(kOff) : QString(kOn));
    } else if (m_kind == Kind::Choices) {
        QStringList values = m_state.values;
        if (option.isEmpty())
            values.clear();
        else if (values.removeAll(option) == 0)
            values.append(option);
        chooseAll(values);
    }
}

void Setting::press()
{
    if (m_kind == Kind::Button)
        chooseAll({QString(kOn)});
}

void Setting::step(int steps)
{
    if (isNumeric()) {
        choose(QString::number(stepped(steps), 'f', m_range.decimals));
    } else if (m_kind == Kind::Toggle) {
        choose(steps > 0 ? QString(kOn) : QString(kOff));
    } else if (m_kind == Kind::Options && !m_options.empty()) {
        const int last = static_cast<int>(m_options.size()) - 1;
        const int wanted = std::clamp(currentOption() + steps, 0, last);
        if (wanted != currentOption())
            choose(m_options[static_cast<std::size_t>(wanted)].value);
    }
}

double Setting::stepped(int steps) const
{
    const double tolerance = m_range.step / 2;
    const double wanted = number() + steps * m_range.step;
    if (m_range.wraps && wanted > m_range.maximum + tolerance)
        return m_range.minimum;
    if (m_range.wraps && wanted < m_range.minimum - tolerance)
        return m_range.maximum;
    return std::clamp(wanted, m_range.minimum, m_range.maximum);
}

void Setting::fromElement(const QStringList& values, const QStringList& reasons, bool active)
{
    m_state = {values, reasons, active};
    emit changed();
}

void Setting::setUnconfirmed(bool unconfirmed)
{
    if (!unconfirmed && !m_unconfirmed)
        return; // the news was somebody else's
    m_unconfirmed = unconfirmed;
    m_overdue = false;
    if (unconfirmed)
        m_confirmation.start(kConfirmationMs, this);
    else
        m_confirmation.stop();
    emit changed();
}

void Setting::forget()
{
    m_state = {};
    setUnconfirmed(false);
    emit changed();
}

void Setting::timerEvent(QTimerEvent*)
{
    m_confirmation.stop();
    m_overdue = true;
    emit changed();
}

bool Setting::canBe(const QStringList& values) const
{
    switch (m_kind) {
    case Kind::Options:
        return values.size() == 1 && hasOption(values.first());
    case Kind::Choices:
        return std::all_of(values.begin(), values.end(),
                           [this](const QString& value) { return hasOption(value); });
    case Kind::Toggle:
        return values.size() == 1 && (values.first() == kOn || values.first() == kOff);
    case Kind::Slider:
    case Kind::Number: {
        bool ok = false;
        const double number = values.value(0).toDouble(&ok);
        return ok && std::isfinite(number) && number >= m_range.minimum && number <= m_range.maximum;
    }
    case Kind::Button:
        break;
    }
    return true;
}

bool Setting::hasOption(const QString& value) const
{
    return std::any_of(m_options.begin(), m_options.end(),
                       [&value](const Option& option) { return option.value == value; });
}

int Setting::currentOption() const
{
    const auto found = std::find_if(m_options.begin(), m_options.end(),
                                    [this](const Option& option) { return option.value == value(); });
    return found == m_options.end() ? -1 : static_cast<int>(found - m_options.begin());
}
