#pragma once

#include "presets/WzClientPresetManager.h"

#include <QBasicTimer>
#include <QSet>

class ConnectionStatus;
class PresetHelper;

/// What the user asks of the presets on the instrument: one request at a time, and in words how it stands.
/// The instrument confirms a request by the inventory or the preset that it sends; whoever follows the
/// signals sends the requests.
class PresetRequests : public QObject {
    Q_OBJECT
public:
    enum class Kind { None, Save, Overwrite, Load, Rename, Delete, Export, Import };
    Q_ENUM(Kind)

    explicit PresetRequests(const ConnectionStatus& connection, QObject* parent = nullptr);

    /// Where the list comes from. Without it there is none.
    void follow(PresetHelper& helper);
    void setAnswerTimeout(int milliseconds) { m_answerMs = milliseconds; }

    /// In the user's order; empty while there is no connection.
    QStringList names() const;
    bool contains(const QString& name) const { return names().contains(name); }
    /// When it was stored, in ms since 1970; 0 when unknown.
    qint64 savedAt(const QString& name) const;
    /// What the screen was loaded from, or saved as, last; empty when neither.
    QString current() const { return m_current; }
    bool currentIsLoaded() const { return m_currentIsLoaded; }
    void forgetCurrent();

    bool isConnected() const;
    bool isBusy() const { return m_pending.kind != Kind::None; }
    /// While busy what is waited for, afterwards what became of it.
    QString text() const { return m_text; }
    bool hasFailed() const { return m_hasFailed; }
    /// Why nothing can be asked for now; empty when it can.
    QString whyNot() const;
    /// Why a preset cannot be called that; empty when it can.
    static QString faultOf(const QString& name);
    /// @p name, with a number behind it if there is one that is called so.
    QString freeName(const QString& name) const;

public slots:
    /// The present screen under a new name. One that has it is not replaced.
    void save(const QString& name);
    void overwrite(const QString& name);
    void load(const QString& name);
    void rename(const QString& name, const QString& newName);
    void remove(const QString& name);
    /// Into a file in the user's documents.
    void exportToFile(const QString& name);
    void importFrom(const QString& path);
    void rearrange(const QStringList& names);

    void onAnswered(const QString& name, WzClientPresetManager::Answer answer);
    void onPresetFetched(const WzClientPreset& preset);

signals:
    /// The list, or how things stand.
    void changed();
    /// A request is over, with text().
    void ended(PresetRequests::Kind kind, bool succeeded);

    void createWanted(const QString& name);
    void overwriteWanted(const QString& name);
    void loadWanted(const QString& name);
    void renameWanted(const QString& name, const QString& newName);
    void deleteWanted(const QString& name);
    void fetchWanted(const QString& name);
    void storeWanted(const QString& name, const WzClientPreset& preset);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Request {
        Kind kind = Kind::None;
        QString name;
        QString newName = {};
        QSet<QString> namesBefore = {};
        qint64 savedBefore = 0;
    };

    bool start(Kind kind, const QString& name, const QString& newName = {});
    void end(bool succeeded, const QString& text);
    void onPresetsUpdated();
    void onConnectionChanged();
    bool isDone(const QSet<QString>& namesNow) const;
    bool isRefused(const QSet<QString>& namesNow) const;
    QString doneText() const;
    QString refusedText() const;
    void noteCurrent();

    const ConnectionStatus& m_connection;
    PresetHelper* m_helper = nullptr;
    Request m_pending;
    QString m_text;
    bool m_hasFailed = false;
    bool m_isRearranging = false;
    QString m_current;
    bool m_currentIsLoaded = false;
    QBasicTimer m_timer;
    int m_answerMs = WzClientPresetManager::kAnswerMs;
};
