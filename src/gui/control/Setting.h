#pragma once

#include "gui/control/ElementState.h"

#include <QBasicTimer>
#include <QJsonValue>
#include <QObject>

#include <functional>
#include <type_traits>
#include <vector>

/// One setting of a window, declared once. Its row in the context menu, its soft button, its editing by knob
/// and its saved state all come from here.
///
/// A setting is either the window's own, or bound to an element of the instrument: then what is chosen goes
/// out by a signal of the window, and what is shown is what the element says.
class Setting : public QObject {
    Q_OBJECT
public:
    enum class Kind {
        Options, ///< one of several
        Choices, ///< any number of several; none chosen means all
        Toggle,
        Slider, ///< a number whose place in its range is what matters
        Number, ///< a number whose figures are what matters
        Button, ///< does something at once
    };

    struct Option {
        QString text;
        QString value; ///< as it travels and is saved
        QString icon = {}; ///< the name of an icon

        friend bool operator==(const Option&, const Option&) = default;
    };

    struct Range {
        double minimum = 0;
        double maximum = 100;
        double step = 1;
        int decimals = 0;
        QString unit = {};
        QString minimumText = {}; ///< stands for the minimum where that is no quantity: "Infinite"
        bool wraps = false; ///< a step beyond an end comes in at the other

        friend bool operator==(const Range&, const Range&) = default;
    };

    Setting(Kind kind, const QString& title, QObject* parent);

    Kind kind() const { return m_kind; }
    QString title() const { return m_title; }
    bool isNumeric() const { return m_kind == Kind::Slider || m_kind == Kind::Number; }

    /// The name of the icon that its soft button carries; empty for none.
    QString icon() const { return m_icon; }
    void setIcon(const QString& name) { m_icon = name; }
    const std::vector<Option>& options() const { return m_options; }
    void setOptions(std::vector<Option> options);
    const Range& range() const { return m_range; }
    void setRange(const Range& range);

    /// Saves the state of a setting under @p key with the window. Those bound to an element are usually kept
    /// by the instrument instead.
    void keepAs(QLatin1String key) { m_key = key; }
    QLatin1String key() const { return m_key; }
    QJsonValue savedState() const;
    /// As if the user had chosen it. A state that the setting cannot have is left alone.
    void restore(const QJsonValue& state);

    QStringList values() const { return m_state.values; }
    /// The first value; empty when there is none.
    QString value() const { return m_state.text(); }
    bool isOn() const { return value() == QLatin1String("true"); }
    double number() const { return value().toDouble(); }
    bool isChosen(const QString& option) const;
    /// As it is shown: "Parade", "3 kinds", "64 %", "On"; "--" when there is none.
    QString valueText() const;
    QString textOf(double number) const;
    /// How several choices read: none of them, which means all, and a number of them: "All kinds", "%1
    /// kinds".
    void setChoicesTexts(const QString& all, const QString& several);

    /// Gives the setting of the window its first state. Bound ones have theirs from their element.
    void initialise(const QStringList& values) { m_state = {values, {}, true}; }

    /// Whether it can be used now; toolTip() says why not.
    bool isUsable() const;
    /// What is wrong with it, or why it cannot be used; empty when nothing is.
    QString toolTip() const;
    const ElementState& state() const { return m_state; }
    /// Asked why the element is inactive when somebody wants to know: an update does not tell.
    void askInactiveReasons(std::function<QStringList()> reasons) { m_inactiveReasons = std::move(reasons); }

    bool isBound() const { return m_isBound; }
    /// Whether a choice waits for the instrument's word, and whether it does so for too long.
    bool isUnconfirmed() const { return m_unconfirmed; }
    bool isOverdue() const { return m_overdue; }

    /// Binds the setting to an element: what is chosen leaves by that signal of the window.
    template<typename Window, typename Argument>
    void writesTo(Window* window, void (Window::*signal)(Argument))
    {
        bindTo(window, [window, signal](const QStringList& values) {
            emit(window->*signal)(converted<std::decay_t<Argument>>(values));
        });
    }
    /// The same for what is no element by itself but a part of one: @p write gets what is chosen, as long as
    /// the window is there.
    template<typename Write>
    void bindTo(QObject* window, Write write)
    {
        m_isBound = true;
        connect(this, &Setting::chosen, window, write);
    }

public slots:
    /// The user's choice. A value that cannot be chosen does nothing.
    void choose(const QString& value);
    void chooseAll(const QStringList& values);
    /// The other state of a toggle, or of one of several choices.
    void toggle(const QString& option = {});
    void press();
    /// So many options or steps further; stays at the ends.
    void step(int steps);

    /// What the element says; the body of the window's slot for it.
    void fromElement(const QStringList& values, const QStringList& reasons, bool active);
    void setUnconfirmed(bool unconfirmed);
    /// The instrument is gone, and with it what the element said.
    void forget();

signals:
    /// What is shown is no longer what it was.
    void changed();
    void chosen(const QStringList& values);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    template<typename T>
    static T converted(const QStringList& values);
    bool canBe(const QStringList& values) const;
    bool hasOption(const QString& value) const;
    int currentOption() const;
    double stepped(int steps) const;

    const Kind m_kind;
    const QString m_title;
    QString m_icon;
    QString m_allText;
    QString m_severalText;
    std::vector<Option> m_options;
    Range m_range;
    QLatin1String m_key;
    ElementState m_state;
    std::function<QStringList()> m_inactiveReasons;
    bool m_isBound = false;
    bool m_unconfirmed = false;
    bool m_overdue = false;
    QBasicTimer m_confirmation;
};

template<typename T>
T Setting::converted(const QStringList& values)
{
    const QString first = values.value(0);
    if constexpr (std::is_same_v<T, QStringList>)
        return values;
    else if constexpr (std::is_same_v<T, bool>)
        return first == QLatin1String("true");
    else if constexpr (std::is_integral_v<T>)
        return static_cast<T>(first.toLongLong());
    else if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(first.toDouble());
    else
        return first;
}
