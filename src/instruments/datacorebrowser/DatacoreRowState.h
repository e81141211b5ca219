#pragma once

#include <QStringList>

class ClientDatacore;

/// What a row tells of its node, as it is at the moment. A value.
struct DatacoreRowState {
    /// The worst of the reasons for being invalid.
    enum class Worst {
        NoValue, ///< the instrument has not sent any yet
        Valid,
        Information,
        Warning,
        Error,
    };

    QStringList values;
    QStringList reasons; ///< for being inactive, then for being invalid
    QString className;
    Worst worst = Worst::NoValue;
    bool isActive = true;

    static DatacoreRowState of(const ClientDatacore& core);
};
