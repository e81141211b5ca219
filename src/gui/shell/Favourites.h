#pragma once

#include "presets/WindowRole.h"

#include <QObject>
#include <QString>

#include <vector>

class QMenu;
class WzClientPreset;

/// What the user has pinned to have at hand. A value.
struct Favourite {
    enum class Kind { Window, Layout, Command, Preset };

    Kind kind = Kind::Command;
    QString name; ///< of a window its title, of a command its identifier
    QString contentClassName; ///< of a window
    WindowRole role = WindowRole::Instrument;

    bool operator==(const Favourite&) const = default;
};

/// The pinned shortcuts, in the order in which they were pinned.
class Favourites : public QObject {
    Q_OBJECT
public:
    static constexpr std::size_t kMaximum = 10;

    using QObject::QObject;

    const std::vector<Favourite>& all() const { return m_all; }
    bool contains(const Favourite& favourite) const;
    bool isFull() const { return m_all.size() >= kMaximum; }
    /// False, and nothing done, when it is pinned already or there is no room.
    bool pin(const Favourite& favourite);
    void unpin(const Favourite& favourite);
    /// The layout, or preset, is pinned under its new name.
    void noteRenamed(Favourite::Kind kind, const QString& from, const QString& to);

    /// Puts an entry into the menu that pins or unpins it.
    void addPinAction(QMenu& menu, const Favourite& favourite);

public slots:
    void onPopulateClientPreset(WzClientPreset& preset) const;
    void onLoadClientPreset(WzClientPreset& preset);

signals:
    void changed();

private:
    std::vector<Favourite> m_all;
};
