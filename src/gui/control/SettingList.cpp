#include "gui/control/SettingList.h"

#include "gui/control/FunctionController.h"
#include "gui/control/FunctionTrigger.h"
#include "gui/control/TouchAction.h"
#include "gui/control/WzMenu.h"
#include "gui/style/WzCustomStyle.h"
#include "presets/SettingsContentPreset.h"

namespace {

constexpr int kTouchActionWidth = 492;
constexpr int kMouseActionWidth = 320;
constexpr int kIconSize = 24;

QIcon iconOf(const QString& name, const WzCustomStyle& style)
{
    return name.isEmpty() ? QIcon() : style.icon(name);
}

/// What does not fit side by side goes into a menu of its own, which shows what is chosen while it is closed.
void addOptionsMenu(QMenu& menu, Setting& setting)
{
    auto* const options = new WzMenu(setting.title() + QLatin1Char('\t') + setting.valueText(), &menu);
    menu.addMenu(options);
    options->setEnabled(setting.isUsable());
    SettingList::addOptionsTo(*options, setting);
}

bool hasOptions(const Setting& setting)
{
    return setting.kind() == Setting::Kind::Options || setting.kind() == Setting::Kind::Choices;
}

} // namespace

void SettingList::addOptionsTo(QMenu& menu, Setting& setting)
{
    for (const Setting::Option& option : setting.options()) {
        QAction* const action = menu.addAction(option.text);
        action->setCheckable(true);
        action->setChecked(setting.isChosen(option.value));
        QObject::connect(action, &QAction::triggered, &setting, [&setting, value = option.value] {
            if (setting.kind() == Setting::Kind::Choices)
                setting.toggle(value);
            else
                setting.choose(value);
        });
    }
}

SettingList::SettingList(const WzCustomStyle& style, QObject* parent)
    : QObject(parent)
    , m_style(style)
{
    fitActions(true);
}

void SettingList::fitActions(bool touchLayout)
{
    m_actionWidth = touchLayout ? kTouchActionWidth : kMouseActionWidth;
    for (const Entry& entry : m_entries) {
        if (entry.group)
            entry.group->fitActions(touchLayout);
    }
}

Setting* SettingList::add(Setting::Kind kind, const QString& title)
{
    auto* const setting = new Setting(kind, title, this);
    m_entries.push_back({setting, nullptr});
    return setting;
}

SettingList* SettingList::addGroup(const QString& title)
{
    auto* const group = new SettingList(m_style, this);
    group->m_title = title;
    group->m_actionWidth = m_actionWidth;
    connect(group, &SettingList::editorWanted, this, &SettingList::editorWanted);
    connect(group, &SettingList::refused, this, &SettingList::refused);
    m_entries.push_back({nullptr, group});
    return group;
}

Setting* SettingList::addOptions(const QString& title, std::vector<Setting::Option> options)
{
    Setting* const setting = add(Setting::Kind::Options, title);
    setting->setOptions(std::move(options));
    return setting;
}

Setting* SettingList::addChoices(const QString& title, std::vector<Setting::Option> options,
                                 const QString& all, const QString& several)
{
    Setting* const setting = add(Setting::Kind::Choices, title);
    options.insert(options.begin(), {all, QString()});
    setting->setOptions(std::move(options));
    setting->setChoicesTexts(all, several);
    return setting;
}

Setting* SettingList::addToggle(const QString& title)
{
    return add(Setting::Kind::Toggle, title);
}

Setting* SettingList::addSlider(const QString& title, const Setting::Range& range)
{
    Setting* const setting = add(Setting::Kind::Slider, title);
    setting->setRange(range);
    return setting;
}

Setting* SettingList::addNumber(const QString& title, const Setting::Range& range)
{
    Setting* const setting = add(Setting::Kind::Number, title);
    setting->setRange(range);
    return setting;
}

Setting* SettingList::addButton(const QString& title, const QString& icon)
{
    Setting* const setting = add(Setting::Kind::Button, title);
    setting->setIcon(icon);
    return setting;
}

void SettingList::addTo(WzMenu& menu) const
{
    for (const Entry& entry : m_entries) {
        if (entry.group)
            addGroupTo(menu, *entry.group);
        else
            addSettingTo(menu, *entry.setting);
    }
}

void SettingList::addGroupTo(WzMenu& menu, const SettingList& group) const
{
    auto* const rows = new WzMenu(group.m_title, &menu);
    group.addTo(*rows);
    menu.addMenu(rows);
}

void SettingList::addSettingTo(WzMenu& menu, Setting& setting) const
{
    if (setting.kind() == Setting::Kind::Button) {
        QAction* const action = menu.addAction(setting.title());
        action->setEnabled(setting.isUsable());
        QObject::connect(action, &QAction::triggered, &setting, &Setting::press);
    } else if (hasOptions(setting) && !TouchAction::fitsSideBySide(setting, m_actionWidth)) {
        addOptionsMenu(menu, setting);
    } else {
        QAction* const row =
            menu.addRow(new TouchAction(setting, m_style, m_actionWidth, &menu), setting.title());
        connect(&setting, &QObject::destroyed, row, [row] { delete row; });
    }
}

TriggerBanks::TriggerList SettingList::triggers()
{
    TriggerBanks::TriggerList triggers;
    for (const Entry& entry : m_entries)
        triggers.push_back(entry.group ? triggerOf(entry.group) : triggerOf(entry.setting));
    return triggers;
}

TriggerBanks::Trigger SettingList::triggerOf(SettingList* group)
{
    auto trigger = FunctionTrigger::makeTrigger(group->m_title);
    connect(trigger.get(), &FunctionTrigger::triggered, group,
            [group] { FunctionController::getInstance().registerTriggers(group->triggers(), group); });
    return trigger;
}

TriggerBanks::Trigger SettingList::triggerOf(Setting* setting)
{
    const TriggerBanks::Trigger trigger =
        FunctionTrigger::makeTrigger(setting->title(), iconOf(setting->icon(), m_style));
    FunctionTrigger* const shown = trigger.get();
    const auto show = [setting, shown] {
        if (setting->kind() == Setting::Kind::Toggle)
            shown->setButtonSelected(setting->isOn());
        else if (setting->kind() != Setting::Kind::Button)
            shown->setSuperscriptText(setting->valueText());
    };
    show();
    connect(setting, &Setting::changed, shown, show);
    connect(shown, &FunctionTrigger::triggered, this, [this, setting] { press(setting); });
    return trigger;
}

void SettingList::press(Setting* setting)
{
    if (!setting->isUsable())
        emit refused(setting);
    else if (setting->kind() == Setting::Kind::Button)
        setting->press();
    else if (setting->kind() == Setting::Kind::Toggle)
        setting->toggle();
    else if (hasOptions(*setting))
        openOptions(setting);
    else
        emit editorWanted(setting);
}

/// The options come over the triggers of the window, and stay for trying one after the other, until somebody
/// goes back.
void SettingList::openOptions(Setting* setting)
{
    TriggerBanks::TriggerList triggers;
    for (const Setting::Option& option : setting->options()) {
        auto trigger = FunctionTrigger::makeTrigger(option.text, iconOf(option.icon, m_style));
        FunctionTrigger* const shown = trigger.get();
        const auto show = [setting, shown, value = option.value] {
            shown->setButtonSelected(setting->isChosen(value));
        };
        show();
        connect(setting, &Setting::changed, shown, show);
        connect(shown, &FunctionTrigger::triggered, setting, [setting, value = option.value] {
            if (setting->kind() == Setting::Kind::Choices)
                setting->toggle(value);
            else
                setting->choose(value);
        });
        triggers.push_back(std::move(trigger));
    }
    FunctionController::getInstance().registerTriggers(triggers, setting);
}

void SettingList::save(SettingsContentPreset& preset) const
{
    forEachSetting([&preset](const Setting& setting) {
        const QJsonValue state = setting.savedState();
        if (setting.key().size() > 0 && !state.isNull())
            preset.setSetting(setting.key(), state);
    });
}

void SettingList::restore(const SettingsContentPreset& preset)
{
    forEachSetting([&preset](Setting& setting) {
        if (setting.key().size() > 0)
            setting.restore(preset.setting(setting.key()));
    });
}

void SettingList::forgetBound()
{
    forEachSetting([](Setting& setting) {
        if (setting.isBound())
            setting.forget();
    });
}

void SettingList::closeOptions()
{
    FunctionController::getInstance().removeTriggersAndChildTriggersForObject(this);
}
