#pragma once

#include "gui/control/Setting.h"
#include "gui/control/TriggerBanks.h"

class QMenu;
class WzMenu;
class SettingsContentPreset;
class WzCustomStyle;

/// The settings of one window, in the order of its menu, and what follows from them.
class SettingList : public QObject {
    Q_OBJECT
public:
    SettingList(const WzCustomStyle& style, QObject* parent);

    Setting* addOptions(const QString& title, std::vector<Setting::Option> options = {});
    /// Of which any number may be chosen. @p all and @p several ("%1 kinds") are how the choice reads.
    Setting* addChoices(const QString& title, std::vector<Setting::Option> options, const QString& all,
                        const QString& several);
    Setting* addToggle(const QString& title);
    Setting* addSlider(const QString& title, const Setting::Range& range);
    Setting* addNumber(const QString& title, const Setting::Range& range);
    Setting* addButton(const QString& title, const QString& icon = {});

    /// Settings that have a menu, and soft buttons, of their own behind this title.
    SettingList* addGroup(const QString& title);

    bool isEmpty() const { return m_entries.empty(); }

    /// Calls @p visit with each, those in groups included.
    template<typename Visit>
    void forEachSetting(Visit visit) const;

    /// Makes the rows of the menu wide enough for fingers, or as narrow as a mouse will do with.
    void fitActions(bool touchLayout);

    /// The rows of a menu.
    void addTo(WzMenu& menu) const;
    /// A row for each option of a setting.
    static void addOptionsTo(QMenu& menu, Setting& setting);
    /// A soft button for each. Those that change a number want an editor.
    TriggerBanks::TriggerList triggers();

    /// Those that have a key.
    void save(SettingsContentPreset& preset) const;
    void restore(const SettingsContentPreset& preset);

    /// The instrument is gone.
    void forgetBound();
    /// Takes options that are open off the function bar.
    void closeOptions();

signals:
    /// The setting is to be changed by knob, keys or finger.
    void editorWanted(Setting* setting);
    /// Somebody has tried to change a setting that cannot be changed now.
    void refused(Setting* setting);

private:
    /// One of both.
    struct Entry {
        Setting* setting = nullptr;
        SettingList* group = nullptr;
    };

    Setting* add(Setting::Kind kind, const QString& title);
    void addGroupTo(WzMenu& menu, const SettingList& group) const;
    void addSettingTo(WzMenu& menu, Setting& setting) const;
    void press(Setting* setting);
    void openOptions(Setting* setting);
    TriggerBanks::Trigger triggerOf(Setting* setting);
    TriggerBanks::Trigger triggerOf(SettingList* group);
    const WzCustomStyle& m_style;
    QString m_title;
    std::vector<Entry> m_entries;
    int m_actionWidth = 0;
};

template<typename Visit>
void SettingList::forEachSetting(Visit visit) const
{
    for (const Entry& entry : m_entries) {
        if (entry.group)
            entry.group->forEachSetting(visit);
        else
            visit(*entry.setting);
    }
}
