#pragma once

#include "gui/control/ElementState.h"
#include "gui/control/ReadOnlyRows.h"
#include "gui/framework/WzSubwindowContent.h"

#include <array>
#include <functional>

/// Shows what is measured and by what: the source, how its audio is metered, and the instrument itself.
class SignalStatus : public WzSubwindowContent {
    Q_OBJECT
public:
    static constexpr QLatin1String kClassName{"SignalStatus", 12};

    /// What has a row, from the top. Where there is not enough room for all, the hold time moves into the row
    /// of the ballistics and the sources are left to the context menu.
    enum Item {
        Source,
        Video,
        AudioChannels,
        AvailableSources,
        Ballistics,
        HatHoldTime,
        SystemMode,
        SoftwareVersion,
        ConnectedClients,
        KeptEvents,
    };
    static constexpr int kItems = KeptEvents + 1;

    SignalStatus(WzSubWindow* subWindow, Velmora::Wz::Device device);

    QString helpText() const override;

    Setting* source() const { return m_source; }

    /// Asked why an element is inactive when somebody wants to know: an update does not tell.
    void setInactiveReasons(std::function<QStringList(Item)> reasons);

public slots:
    void fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreActiveStandardUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCorePictureFormatUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreSignalSourceAudioChannelsUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreSignalSourceAvailableNamesUpdated(QStringList values, QStringList reasons,
                                                         bool active);
    void fromConfigCoreAudioMeteringBallisticsUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMeteringHatHoldTimeUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreCurrentSystemModeUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreSoftwareVersionUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreConnectedClientsUpdated(QStringList values, QStringList reasons, bool active);
    void fromStatusCoreLoggingKeptEventsUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toConfigCoreSignalSourceName(const QString& name);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void onFrozenChanged(bool frozen) override;
    void onConnectionChanged(bool connected) override;

private:
    void setState(Item item, ElementState state);
    void showRows();
    std::vector<Item> itemsThatFit() const;
    bool hasOneRowForMeterSettings() const { return m_shownItems.size() < kItems; }
    ReadOnlyRows::Row rowOf(Item item) const;
    QString valueText(Item item) const;
    QString videoText() const;
    QString toolTipOf(Item item) const;
    const ElementState& state(Item item) const { return m_states[static_cast<std::size_t>(item)]; }

    ReadOnlyRows* const m_rows;
    Setting* const m_source;
    std::vector<Item> m_shownItems; ///< those that have a row
    std::array<ElementState, kItems> m_states;
    ElementState m_pictureFormat; ///< says what pictures are that no standard has
    std::function<QStringList(Item)> m_inactiveReasons;
};
