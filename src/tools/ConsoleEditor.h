#pragma once

#include <QString>

#include <optional>

/// Lines from a terminal, with editing, completion of commands, and a history that is kept in a file.
class ConsoleEditor {
public:
    ConsoleEditor();
    ~ConsoleEditor();
    Q_DISABLE_COPY_MOVE(ConsoleEditor)

    /// Nothing when the input has ended.
    static std::optional<QString> readLine();

private:
    QByteArray m_historyFile;
};
