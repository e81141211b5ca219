#pragma once

#include <QObject>
#include <QStringList>

/// A value at the client with the signal that windows connect to.
class MirroredValue : public QObject {
    Q_OBJECT
public:
    QStringList data;
    QStringList reasonsForBeingInvalid;
    QStringList reasonsForBeingInactive;

signals:
    void updated(QStringList values, QStringList reasons, bool active);
};
