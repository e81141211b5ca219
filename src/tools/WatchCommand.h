#pragma once

#include "tools/MirroredTrees.h"

#include <QObject>
#include <QStringList>

#include <optional>

struct ToolContext;

/// Prints the values of elements, and a line for each change from then on: time, path, items, marks; or one
/// JSON object. Goes on after a loss of the connection.
class WatchCommand : public QObject {
    Q_OBJECT
public:
    explicit WatchCommand(const ToolContext& context);

    int run();

private:
    void follow();
    void onChanged(const ClientDatacore& node);
    bool print(const ClientDatacore& node) const;
    void finish(int exitCode);

    const ToolContext& m_context;
    MirroredTrees m_trees;
    int m_changes = 0;
    bool m_allFound = false;
    std::optional<int> m_exitCode; ///< once it has ended
};
