#include "types/audio/AudioChannelContent.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace Velmora::AudioTypes;

class tst_AudioChannelContent : public WzTest {
    Q_OBJECT

private slots:
    void itemsComeBack_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("shortText");
        QTest::addColumn<QString>("dataText");
        const auto row = [](const char* item, const char* shortText, const char* dataText) {
            QTest::newRow(item) << QString::fromLatin1(item) << QString::fromLatin1(shortText)
                                << QString::fromLatin1(dataText);
        };
        row("absent", "--", "");
        row("silence", "Silent", "");
        row("pcm", "PCM", "");
        row("pcm 20", "PCM 20", "");
        row("data 1 16 -1", "Data 16", "AC-3");
        row("data 28 20 -1", "Data 20", "Dolby E");
        row("data 28 20 0", "Data 20", "Dolby E  5.1 + 2");
        row("data 28 24 23", "Data 24", "Dolby E  7.1 Screen");
        row("data 31 0 -1", "Data", "Extended");
    }
    void itemsComeBack()
    {
        QFETCH(QString, item);
        const auto content = AudioChannelContent::fromItem(item);
        QCOMPARE(content.toItem(), item);
        QTEST(content.shortText(), "shortText");
        QTEST(content.dataText(), "dataText");
    }

    void damagedItems_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("readAs");
        const auto row = [](const char* item, const char* readAs) {
            QTest::newRow(item) << QString::fromLatin1(item) << QString::fromLatin1(readAs);
        };
        row("", "absent");
        row("PCM 24", "absent");
        row("data", "absent");
        row("data 32 20 0", "absent");
        row("data -1 20 0", "absent");
        row("data 28 99 24", "data 28 0 -1");
        row("data 28 20 -5", "data 28 20 -1");
        row("pcm 25", "pcm");
        row("pcm x", "pcm");
    }
    void damagedItems()
    {
        QFETCH(QString, item);
        QTEST(AudioChannelContent::fromItem(item).toItem(), "readAs");
    }

    void programmes()
    {
        QCOMPARE(dolbyEProgramCount(0), 2);
        QCOMPARE(dolbyEProgramCount(10), 8);
        QCOMPARE(dolbyEProgramCount(11), 1);
        QCOMPARE(dolbyEProgramCount(24), 1);
        QCOMPARE(dolbyEProgramCount(-1), 1);
    }
};

WZ_TEST_CLASS(tst_AudioChannelContent)
#include "tst_AudioChannelContent.moc"
