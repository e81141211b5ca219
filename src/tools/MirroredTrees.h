#pragma once

#include "datacore/ClientDatacoreManipulator.h"

#include <QStringList>

class ClientDatacore;
class ClientDatacoreRegistry;
class QJsonObject;
class WzClientNetworkManager;
struct ToolContext;

/// An instrument's trees for a command of wz_datacore: connects when they are first waited for, and says on
/// standard error what does not come within the time limit.
class MirroredTrees {
public:
    enum class Outcome {
        Taken,
        Refused, ///< the instrument has kept another value
        Invalid, ///< it has the value, but calls it invalid
        Unanswered,
    };
    struct WriteResult {
        Outcome outcome;
        QString problem; ///< in one line, empty when the value was taken
    };

    explicit MirroredTrees(const ToolContext& context);

    /// Waits until it is known which elements there are.
    [[nodiscard]] bool waitForTrees();
    /// Waits for the value of an element. One that the instrument has not fails at once.
    [[nodiscard]] bool waitForValue(const QString& path);
    [[nodiscard]] bool waitForValues(const QStringList& paths);
    /// The same, but for an element that may come yet.
    [[nodiscard]] bool waitForElement(const QString& path);

    /// The paths of all elements, parents before their children and each with them.
    QStringList paths() const;
    /// The element, null when there is none. Not to be kept while events are processed.
    const ClientDatacore* node(const QString& path) const;

    /// Writes an element and waits for the echo.
    WriteResult write(const QString& path, const QStringList& values);

    ClientDatacoreRegistry& registry() { return m_registry; }
    WzClientNetworkManager& network() { return m_network; }

    /// Path, class, values and state of an element.
    static QJsonObject toJson(const ClientDatacore& node);
    /// The marks behind a value in text: " [Error: ...]" with the reasons for being invalid, " [inactive]".
    static QString marksOf(const ClientDatacore& node);

private:
    void connectToServer();

    const ToolContext& m_context;
    WzClientNetworkManager& m_network;
    ClientDatacoreRegistry& m_registry;
    ClientDatacoreManipulator m_manipulator;
};
