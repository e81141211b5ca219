#pragma once

#include <QDateTime>
#include <QObject>
#include <QStringList>

#include <optional>

/// What time it is at the instrument. It tells that once a minute; in between its clock is that of this
/// machine and the difference. One that listens only now and then would take an old value for that of now.
class InstrumentClock : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// In UTC; nothing when the instrument has not told.
    std::optional<QDateTime> now() const;

public slots:
    void fromStatusCoreSystemTimeUtcUpdated(QStringList values, QStringList reasons, bool active);
    void reset();

signals:
    void changed();

private:
    QString m_lastTold;
    std::optional<qint64> m_aheadMs;
};
