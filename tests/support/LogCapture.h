#pragma once

#include <QString>
#include <QStringList>

#include <memory>

namespace spdlog::level {
enum level_enum : int;
}

/// Stands in as the "WZLOG" logger and keeps every line, so that a test can expect a text and a run fails
/// on an error line that nobody announced.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();

    /// All lines so far, oldest first, each as "L text" with the level's short letter (I, W, E ...).
    QStringList lines() const;
    /// How many lines contain @p text.
    int count(const QString& text) const;
    bool contains(const QString& text) const { return count(text) > 0; }
    void clear();

    /// Announces that error lines containing @p text must come, once at least.
    void expectError(const QString& text);
    /// The error and critical lines that were not announced.
    QStringList unexpectedErrors() const;
    /// What was expected and did not come.
    QStringList missingErrors() const;

private:
    class Sink;

    QStringList errorLines() const;

    std::shared_ptr<Sink> m_sink;
    QStringList m_expectedErrors;
    QStringList m_announcedBefore; ///< expected errors that came before clear()
};
