#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QString>

namespace Velmora::Server {

class DatacoreService;
class InstrumentTrees;

/// Keeps what is in the tree of the persistent configuration in a file, over the end of the program: written
/// a little after a client has changed something, and at the end.
class PersistentSettings : public QObject {
    Q_OBJECT
public:
    /// More of a file is not read.
    static constexpr qint64 kLargestFile = 1024 * 1024;

    PersistentSettings(const QString& path, InstrumentTrees& trees, DatacoreService& datacores,
                       QObject* parent = nullptr);
    ~PersistentSettings() override;

    /// Sets what the file holds and is valid. A damaged file is set aside, with a log line that says where.
    void load();
    /// Writes all that is valid, whole or not at all. False, and a log line, when it could not.
    bool save();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    const QString m_path;
    InstrumentTrees& m_trees;
    DatacoreService& m_datacores;
    QBasicTimer m_timer;
};

} // namespace Velmora::Server
