#include "gui/shell/Favourites.h"

#include "logging/Logging.h"
#include "presets/WzClientPreset.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMenu>

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr QLatin1String kShortcutsKey("shortcuts", 9);
constexpr QLatin1String kKindKey("kind", 4);
constexpr QLatin1String kNameKey("name", 4);
constexpr QLatin1String kContentClassKey("contentClass", 12);
constexpr QLatin1String kRoleKey("role", 4);

/// By the values of Favourite::Kind.
constexpr std::array<QLatin1String, 4> kKinds{QLatin1String("window", 6), QLatin1String("layout", 6),
                                              QLatin1String("command", 7), QLatin1String("preset", 6)};

QJsonObject toJson(const Favourite& favourite)
{
    QJsonObject object{{kKindKey, QString(kKinds[static_cast<std::size_t>(favourite.kind)])},
                       {kNameKey, favourite.name}};
    if (favourite.kind == Favourite::Kind::Window) {
        object.insert(kContentClassKey, favourite.contentClassName);
        object.insert(kRoleKey, static_cast<int>(favourite.role));
    }
    return object;
}

std::optional<Favourite> fromJson(const QJsonObject& object)
{
    const auto kind = std::find(kKinds.begin(), kKinds.end(), object.value(kKindKey).toString());
    Favourite favourite;
    favourite.name = object.value(kNameKey).toString();
    if (kind == kKinds.end() || favourite.name.isEmpty())
        return {};
    favourite.kind = static_cast<Favourite::Kind>(kind - kKinds.begin());
    if (favourite.kind == Favourite::Kind::Window) {
        favourite.contentClassName = object.value(kContentClassKey).toString();
        favourite.role = static_cast<WindowRole>(object.value(kRoleKey).toInt());
    }
    return favourite;
}

} // namespace

bool Favourites::contains(const Favourite& favourite) const
{
    return std::find(m_all.begin(), m_all.end(), favourite) != m_all.end();
}

bool Favourites::pin(const Favourite& favourite)
{
    if (isFull() || contains(favourite))
        return false;
    m_all.push_back(favourite);
    emit changed();
    return true;
}

void Favourites::unpin(const Favourite& favourite)
{
    const auto found = std::find(m_all.begin(), m_all.end(), favourite);
    if (found == m_all.end())
        return;
    m_all.erase(found);
    emit changed();
}

void Favourites::noteRenamed(Favourite::Kind kind, const QString& from, const QString& to)
{
    const auto found = std::find(m_all.begin(), m_all.end(), Favourite{kind, from, {}, {}});
    if (found == m_all.end() || from == to)
        return;
    found->name = to;
    emit changed();
}

void Favourites::addPinAction(QMenu& menu, const Favourite& favourite)
{
    const bool isPinned = contains(favourite);
    QAction* const action = menu.addAction(isPinned ? tr("Remove from Favourites") : tr("Add to Favourites"));
    action->setEnabled(isPinned || !isFull());
    connect(action, &QAction::triggered, this, [this, favourite, isPinned] {
        if (isPinned)
            unpin(favourite);
        else
            pin(favourite);
    });
}

void Favourites::onPopulateClientPreset(WzClientPreset& preset) const
{
    QJsonArray shortcuts;
    for (const Favourite& favourite : m_all)
        shortcuts.append(toJson(favourite));
    WzFavouriteShortcutsPreset section;
    section.set(kShortcutsKey, shortcuts);
    preset.setFavouriteShortcutsPresets(section);
}

void Favourites::onLoadClientPreset(WzClientPreset& preset)
{
    const QJsonValue shortcuts = preset.getFavouriteShortcutsPresets().get(kShortcutsKey);
    if (!shortcuts.isArray())
        return;
    m_all.clear();
    for (const QJsonValue shortcut : shortcuts.toArray()) {
        const auto favourite = fromJson(shortcut.toObject());
        if (!favourite)
            Velmora::log()->warn("A favourite in the preset is not understood: left out");
        else if (!isFull() && !contains(*favourite))
            m_all.push_back(*favourite);
    }
    emit changed();
}
