#pragma once

#include "datacore/ClientDatacoreManipulator.h"

#include <QHostAddress>
#include <QObject>
#include <QStringList>

#include <chrono>

class ClientDatacore;
class ClientDatacoreRegistry;
class WzClientNetworkManager;

/// The commands of wz_datacore that read and write the mirrored trees. Each runs the event loop until it is
/// done and returns the program's exit code: 0 done, 1 failed, with the reason on standard error.
class DatacoreCommands : public QObject {
    Q_OBJECT
public:
    struct Options {
        QHostAddress host{QHostAddress::LocalHost};
        std::chrono::milliseconds timeout{10000};
        bool json = false;
        int count = 0; ///< changes after which watch() ends; 0 for no end
    };

    DatacoreCommands(WzClientNetworkManager& network, ClientDatacoreRegistry& registry,
                     const Options& options);

    /// Prints every path that begins with @p prefix.
    int list(const QString& prefix);
    /// Prints the items of the node, one a line.
    int get(const QString& path);
    /// Writes the node and waits for the echo; fails when the instrument has kept another value or calls this
    /// one invalid.
    int set(const QString& path, const QStringList& values);
    /// Prints the values of the nodes, and a line for each change from then on: time, path, items, reasons.
    /// Goes on after a loss of the connection.
    int watch(const QStringList& paths);
    /// Returns when the node has a value.
    int wait(const QString& path);

private:
    bool connectToServer();
    bool waitForTrees();
    bool waitForNode(const QString& path);
    void follow(const QStringList& paths);
    void printChange(const QString& path, const QStringList& values, const QStringList& reasons, bool active);
    void complain(const QString& problem) const;

    WzClientNetworkManager& m_network;
    ClientDatacoreRegistry& m_registry;
    Options m_options;
    ClientDatacoreManipulator m_manipulator;
    int m_changes = 0;
};
