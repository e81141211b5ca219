#include "remote/ConsoleProtocol.h"
#include "remote/ConsoleServer.h"
#include "remote/ConsoleSession.h"
#include "remote/WzExternalApi.h"

#include "remote/FakeDesk.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

const QByteArray kDone = "-- done\n";
const QByteArray kFailed = "-- failed\n";

/// The interface with a socket, as the client has it.
struct Console {
    explicit Console(const QString& path)
        : desk(*api)
        , queue(new CommandQueue(*api))
        , server(new ConsoleServer(*queue))
    {
        isOpen = server->listen(path);
    }

    std::unique_ptr<WzExternalApi> api = std::make_unique<WzExternalApi>();
    FakeDesk desk;
    CommandQueue* queue;
    ConsoleServer* server;
    bool isOpen = false;
};

/// A console that connects to it.
struct Peer {
    explicit Peer(const QString& path)
    {
        socket.connectToServer(path);
        (void)socket.waitForConnected(2000);
    }
    void send(const QByteArray& bytes)
    {
        socket.write(bytes);
        socket.flush();
    }
    /// All that has come, once it ends with @p end.
    bool gets(const QByteArray& end)
    {
        return QTest::qWaitFor(
            [&] {
                received += socket.readAll();
                return received.endsWith(end);
            },
            10'000);
    }

    QLocalSocket socket;
    QByteArray received;
};

/// What a process leaves that is killed: a socket without anybody behind it.
void leaveStaleSocket(const QString& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path);
    std::copy(name.begin(), name.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    QCOMPARE(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
}

} // namespace

class tst_ConsoleServer : public WzTest {
    Q_OBJECT
private slots:
    void linesAreAnswered_data()
    {
        QTest::addColumn<QByteArray>("sent");
        QTest::addColumn<QByteArray>("answer");
        const auto row = [](const char* name, const QByteArray& sent, const QByteArray& answer) {
            QTest::newRow(name) << sent << answer;
        };
        row("one", "execute 5\n", "Executing command 5\n-- done\n");
        row("of another system", "execute 5\r\n", "Executing command 5\n-- done\n");
        row("two at once", "execute 5\nexecute 6\n",
            "Executing command 5\n-- done\nExecuting command 6\n-- done\n");
        row("control character", "execute\x1b[2J 5\n",
            "There are control characters in the line\n-- failed\n");
        row("zero", QByteArray("exe\0cute 5\n", 11), "There are control characters in the line\n-- failed\n");
        row("tab", "execute\t5\n", "There are control characters in the line\n-- failed\n");
        row("no UTF-8", "execute \xff\n", "The line is not UTF-8\n-- failed\n");
        row("torn UTF-8", "execute \xe2\x82\n", "The line is not UTF-8\n-- failed\n");
        row("half a line", "execute 5\nexec", "Executing command 5\n-- done\n");
        const QByteArray tooLong = "The line has more than 4096 bytes\n-- failed\n";
        row("1 MB and then another", QByteArray(1024 * 1024, 'x') + "\nexecute 5\n",
            tooLong + "Executing command 5\n-- done\n");
        row("a byte too long", QByteArray(4097, ' ') + "\n", tooLong);
        row("as long as can be", "execute 5" + QByteArray(4087, ' ') + "\n",
            "Executing command 5\n-- done\n");
    }
    void linesAreAnswered()
    {
        QFETCH(QByteArray, sent);
        QFETCH(QByteArray, answer);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        const Console console(path);
        QVERIFY(console.isOpen);
        for (const bool isTorn : {false, true}) {
            Peer peer(path);
            if (isTorn) {
                // The cut falls into the first line.
                peer.send(sent.left(3));
                QTest::qWait(20);
                peer.send(sent.mid(3));
            } else {
                peer.send(sent);
            }
            QVERIFY2(peer.gets(answer), peer.received.right(200).constData());
            QCOMPARE(peer.received, answer);
        }
    }

    /// What the instrument says cannot be taken for the end, and does not write on the terminal.
    void answersCannotImitateTheEnd()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        Console console(path);
        console.desk.outcome = CommandOutcome::refused(QStringLiteral("-- done\n\x1b[31mred\n"));
        Peer peer(path);
        peer.send("execute 1\n");
        QVERIFY(peer.gets(kFailed));
        QCOMPARE(peer.received, QByteArray("Executing command 1\n -- done\n?[31mred\n-- failed\n"));
    }

    void theSocketBelongsToItsUser()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        {
            const Console console(path);
            const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther
                | QFile::WriteOther | QFile::ExeOther;
            QVERIFY(!(QFileInfo(path).permissions() & others));
            console.server->shutDown();
        }
        QVERIFY(!QFileInfo::exists(path));
    }

    void whatADeadClientLeftIsReplaced()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        leaveStaleSocket(path);
        const Console console(path);
        QVERIFY(console.isOpen);
        Peer peer(path);
        peer.send("execute 1\n");
        QVERIFY(peer.gets(kDone));
    }

    void whatOthersHaveIsLeftAlone()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        const Console first(path);
        const Console second(path);
        QVERIFY(!second.isOpen);
        Peer peer(path);
        peer.send("execute 1\n");
        QVERIFY(peer.gets(kDone));
        QCOMPARE(first.desk.asked.size(), 1);

        // Not of our kind, so without a lock.
        const QString foreign = folder.filePath(QStringLiteral("foreign"));
        QLocalServer other;
        QVERIFY(other.listen(foreign));
        QVERIFY(!Console(foreign).isOpen);
        QFile file(folder.filePath(QStringLiteral("letter.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("Dear all") == 8);
        file.close();
        QVERIFY(!Console(file.fileName()).isOpen);
        QCOMPARE(QFileInfo(file).size(), 8);
        QVERIFY(!Console(QStringLiteral("/none/console")).isOpen);
        QVERIFY(!Console(QString()).isOpen);
        QVERIFY(!Console(folder.filePath(QString(200, QLatin1Char('x')))).isOpen);
    }

    void aThousandAreServed()
    {
        // Both ends are in this process.
        rlimit files{};
        QCOMPARE(::getrlimit(RLIMIT_NOFILE, &files), 0);
        files.rlim_cur = std::max<rlim_t>(files.rlim_cur, 2 * ConsoleServer::kMostClients + 200);
        if (files.rlim_cur > files.rlim_max || ::setrlimit(RLIMIT_NOFILE, &files) != 0)
            QSKIP("This system lets no process have so many files open");
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        const Console console(path);
        std::vector<std::unique_ptr<Peer>> peers;
        for (int i = 0; i < ConsoleServer::kMostClients; ++i) {
            peers.push_back(std::make_unique<Peer>(path));
            QCoreApplication::processEvents();
            QCOMPARE(peers.back()->socket.state(), QLocalSocket::ConnectedState);
        }
        Peer tooMany(path);
        QVERIFY(tooMany.gets("There are too many consoles\n-- failed\n"));
        QTRY_COMPARE(tooMany.socket.state(), QLocalSocket::UnconnectedState);
        // Half of them begin a line and fall silent.
        for (std::size_t i = 0; i < peers.size(); ++i)
            peers[i]->send(i % 2 == 0 ? "exec" : "execute 1\n");
        for (std::size_t i = 1; i < peers.size(); i += 2)
            QVERIFY(peers[i]->gets(kDone));
        QCOMPARE(console.server->clientCount(), ConsoleServer::kMostClients);
        // Others come and go, and do not wait for their answer.
        peers.resize(100);
        QTRY_COMPARE(console.server->clientCount(), 100);
        for (int i = 0; i < 600; ++i) {
            Peer peer(path);
            peer.send("execute 2\n");
            QCoreApplication::processEvents();
        }
        QTRY_COMPARE(console.server->clientCount(), 100);
        QTRY_COMPARE(console.desk.asked.count(QStringLiteral("execute 2")), 600);
    }

    void whoDoesNotReadIsDropped()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        const Console console(path);
        Peer deaf(path);
        deaf.socket.setReadBufferSize(1);
        QTRY_COMPARE(console.server->clientCount(), 1);
        const QByteArray lines = QByteArray("nonsense\n").repeated(200);
        QVERIFY(QTest::qWaitFor(
            [&] {
                if (deaf.socket.bytesToWrite() < lines.size())
                    deaf.send(lines);
                return console.server->clientCount() == 0;
            },
            30'000));
        QVERIFY(log().contains(QStringLiteral("does not read its answers")));
        Peer peer(path);
        peer.send("execute 1\n");
        QVERIFY(peer.gets(kDone));
    }

    /// What is asked of one console does not hold the others' answers back for ever, nor mix with them.
    void answersGoToWhoAsked()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        Console console(path);
        console.desk.holdsBack = true;
        Peer first(path);
        Peer second(path);
        first.send("execute 1\n");
        QTRY_COMPARE(console.desk.asked.size(), 1);
        second.send("execute 2\n");
        first.send("execute 3\n");
        QTest::qWait(50);
        QCOMPARE(console.desk.asked.size(), 1);
        // The one who asked goes; the others have their turn.
        first.socket.abort();
        QTest::qWait(50);
        console.desk.holdsBack = false;
        console.desk.answerAll();
        QVERIFY(second.gets(kDone));
        QCOMPARE(second.received, QByteArray("Executing command 2\n-- done\n"));
        QTRY_COMPARE(console.desk.asked.size(), 3);
    }

    void commandsInTheMiddleOfTheEndAreRefused()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("console"));
        Console console(path);
        console.desk.holdsBack = true;
        Peer running(path);
        Peer waiting(path);
        running.send("execute 1\n");
        QTRY_COMPARE(console.desk.asked.size(), 1);
        waiting.send("execute 2\nexecute 3\n");
        QTest::qWait(50);
        console.server->shutDown();
        QVERIFY(running.gets(kFailed));
        QCOMPARE(running.received, QByteArray("Executing command 1\nThe display client ends\n-- failed\n"));
        QVERIFY(waiting.gets(kFailed));
        QCOMPARE(waiting.received, QByteArray("The display client ends\n-- failed\n").repeated(2));
        QTRY_COMPARE(waiting.socket.state(), QLocalSocket::UnconnectedState);
        console.desk.answerAll();
        QCOMPARE(console.desk.asked.size(), 1);
    }
};

WZ_TEST_CLASS(tst_ConsoleServer)
#include "tst_ConsoleServer.moc"
