#pragma once

#include "remote/WzExternalApi.h"

#include <QStringList>

#include <utility>
#include <vector>

/// Stands in for the GUI thread: notes what the interface asks for, and answers as it is told.
class FakeDesk : public QObject {
public:
    explicit FakeDesk(WzExternalApi& api)
        : m_api(api)
    {
        connect(&api, &WzExternalApi::executeRequested, this, [this](quint64 request, int command) {
            note(request, QStringLiteral("execute %1").arg(command));
        });
        connect(&api, &WzExternalApi::writeRequested, this,
                [this](quint64 request, const QString& path, const QStringList& values) {
                    note(request, path + QLatin1Char('=') + values.join(QLatin1Char(',')));
                });
    }

    /// Answers what was held back.
    void answerAll()
    {
        for (const quint64 request : std::exchange(m_held, {}))
            m_api.onAnswered(request, outcome.isDone, outcome.text);
    }

    QStringList asked;
    CommandOutcome outcome;
    bool holdsBack = false;

private:
    void note(quint64 request, const QString& text)
    {
        asked << text;
        m_held.push_back(request);
        if (!holdsBack)
            answerAll();
    }

    WzExternalApi& m_api;
    std::vector<quint64> m_held;
};
