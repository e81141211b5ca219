#pragma once

#include <QObject>
#include <QStringList>

/// What was entered at the console of this screen and what was answered, whether its dialog is open or not.
class ConsoleLog : public QObject {
    Q_OBJECT
public:
    static constexpr int kMostLines = 2000;
    static constexpr int kMostEntries = 200;

    using QObject::QObject;

    const QStringList& lines() const { return m_lines; }
    /// What was entered, the oldest first, none twice in a row.
    const QStringList& entries() const { return m_entries; }
    /// Whether commands were entered that are not answered yet.
    bool isBusy() const { return m_waiting > 0; }

    void enter(const QString& line);
    void clear();

public slots:
    void addAnswerLine(const QString& text);
    void endAnswer(bool isDone);

signals:
    /// To be carried out.
    void entered(QString line);
    void lineAdded(QString line);
    void cleared();
    void busyChanged(bool isBusy);

private:
    void addLine(const QString& line);

    QStringList m_lines;
    QStringList m_entries;
    int m_waiting = 0;
};
