#pragma once

#include <QProcess>
#include <QTest>

/// An X server without a screen, of its own for one test, and the events of its keyboard and mouse.
class VirtualDisplay {
public:
    explicit VirtualDisplay(const QSize& size)
    {
        m_server.start(
            QStringLiteral("Xvfb"),
            {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
             QStringLiteral("0"),
             QStringLiteral("%1x%2x24").arg(QString::number(size.width()), QString::number(size.height())),
             QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        const auto saysOrEnds = [this] {
            return m_server.canReadLine() || m_server.state() == QProcess::NotRunning;
        };
        if (QTest::qWaitFor(saysOrEnds, 20000))
            m_number = m_server.readLine().trimmed();
    }
    ~VirtualDisplay()
    {
        m_server.terminate();
        if (!m_server.waitForFinished())
            m_server.kill();
        m_server.waitForFinished();
    }

    bool isRunning() const { return !m_number.isEmpty(); }
    QString name() const { return QLatin1Char(':') + QString::fromLatin1(m_number); }

    /// Sends what xdotool understands: "key F1", "mousemove 10 20 click 1".
    bool send(const QString& commands) const
    {
        QProcess hand;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DISPLAY"), name());
        hand.setProcessEnvironment(environment);
        hand.start(QStringLiteral("xdotool"), commands.split(QLatin1Char(' ')));
        return hand.waitForFinished() && hand.exitStatus() == QProcess::NormalExit && hand.exitCode() == 0;
    }

private:
    QProcess m_server;
    QByteArray m_number;
};
