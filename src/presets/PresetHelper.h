#pragma once

#include "network/SerialisableDataPacketAcceptorInterface.h"
#include "presets/PresetInventory.h"
#include "presets/PresetOrder.h"

#include <QObject>
#include <QSet>

#include <map>

class SerialisableDataPacketDistributor;

/// Which presets the instrument keeps, as the user sees them: in the order of his own, which is kept in a
/// file of this computer, and without the state that the program keeps there for itself.
class PresetHelper : public QObject, public SerialisableDataPacketAcceptorInterface {
    Q_OBJECT
public:
    /// The name of what the client saves for itself. It cannot be another preset's.
    static constexpr QLatin1String kLastKnownState{"lastKnownState", 14};
    /// More are not listed.
    static constexpr int kMostPresets = 10000;

    explicit PresetHelper(SerialisableDataPacketDistributor& distributor, QObject* parent = nullptr);
    ~PresetHelper() override;

    bool canAcceptPacket(const QString& className) const override;
    void acceptPacket(const SerialisableDataPacket& packet) override;

    const QStringList& getPresetList() const { return m_list; }
    /// When a preset was stored, in ms since 1970; 0 when the instrument does not tell.
    qint64 savedAt(const QString& name) const;

    /// Where the file of the order is; a folder of the user's configuration unless told otherwise.
    void setOrderFolder(const QString& folder);
    QString presetOrderFilename() const;
    /// Reads the file and puts the list into its order. A damaged one is set aside, with a log line.
    void reorderPresetsUsingPresetsOrderFile();
    /// False, and a log line, when it cannot be written.
    bool savePresetsOrder() const;
    /// The order of the list from now on, and for good. Names that are not in the list are passed over.
    void setNewPresetOrder(const QStringList& names);
    /// Takes over, once, what older programs have left: a text file for each of their sets of tools, with a
    /// name in each line. The files are kept under another name.
    void checkForPreCombinedBootPresetsOrderFiles();

    /// What the instrument is asked to do. The order follows when the next inventory says that it has.
    void setRenamedPreset(const QString& name, const QString& newName);
    void setDeletedPreset(const QString& name);

signals:
    /// An inventory has come, or the order has changed.
    void presetsUpdated();

private:
    void takeNames(const PresetInventory& inventory);
    void followChanges();
    void arrange();
    void readOrder();

    SerialisableDataPacketDistributor& m_distributor;
    QString m_folder;
    PresetOrder m_order;
    bool m_orderIsRead = false;
    QStringList m_names; ///< in the instrument's order
    QStringList m_list;
    std::map<QString, qint64> m_savedAt;
    QSet<QString> m_leaving; ///< renamed or deleted, as soon as the instrument has done it
};
