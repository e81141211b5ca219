#include "tools/PayloadIdentifierReport.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include "types/sdi/SupportedVideoStandards.h"

class tst_PayloadIdentifierReport : public WzTest {
    Q_OBJECT

private slots:
    void reports_data()
    {
        QTest::addColumn<quint32>("word");
        QTest::addColumn<QString>("key"); // "section/key" or "key"
        QTest::addColumn<QString>("expected"); // lists joined by ","
        const auto row = [](quint32 word, const char* key, const char* expected) {
            QTest::addRow("%08x %s", word, key)
                << word << QString::fromLatin1(key) << QString::fromLatin1(expected);
        };
        row(0x89CA8001, "faults", "");
        // Alone, or as one quadrant of a larger picture.
        row(0x89CA8001, "matchingStandards",
            "1920x1080p59.94 YCbCr:422:10 3G A Rec.709,3840x2160p59.94 YCbCr:422:10 QL 3G A SQ Rec.709");
        row(0x97CA8041, "text", "3840x2160p59.94 YCbCr:422:10 QL 3G A 2-SI DS2_Link2 Rec.709");
        row(0x97CA8041, "matchingStandards", "3840x2160p59.94 YCbCr:422:10 QL 3G A 2-SI Rec.709");
        row(0x97CA8041, "geometry/links", "4");
        row(0x85060001, "geometry/fieldHeights", "540,540");
        row(0x85060001, "geometry/firstActiveLines", "21,584");
        row(0x85CF8001, "faults", "Invalid picture rate: 15");
        row(0x85CF8001, "matchingStandards", "");
        row(0x81060000, "fields/aspectRatio/text", "4:3");
        row(0x00000000, "faults", "Error packet does not match any supported type");
        row(0x00000000, "matchingStandards", "");
        row(0x00000000, "geometry", "");
    }
    void reports()
    {
        QFETCH(quint32, word);
        QFETCH(QString, key);
        static const Velmora::Sdi::SupportedVideoStandards supported;
        const FactSheet sheet = PayloadIdentifierReport::of(word, supported);
        QJsonValue value = sheet.toJson();
        for (const QString& part : key.split(QLatin1Char('/')))
            value = value.toObject().value(part);
        QStringList texts;
        for (const QVariant& item :
             value.isArray() ? value.toArray().toVariantList() : QVariantList{value.toVariant()})
            texts << item.toString();
        QTEST(texts.join(QLatin1Char(',')), "expected");
    }

    void textStandsInOneColumn()
    {
        FactSheet sheet;
        sheet.add(QStringLiteral("word"), QStringLiteral("1"));
        sheet.add(QStringLiteral("faults"), QStringList(), QStringLiteral("none"));
        sheet.startSection(QStringLiteral("geometry"));
        sheet.add(QStringLiteral("subImages"), 4U);
        sheet.add(QStringLiteral("lines"), QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")},
                  QString());
        QCOMPARE(sheet.toText(),
                 QStringLiteral("Word          1\n"
                                "Faults        none\n"
                                "Geometry\n"
                                "  Sub images  4\n"
                                "  Lines       a\n"
                                "\n"
                                "              b\n"));
    }
};

WZ_TEST_CLASS(tst_PayloadIdentifierReport)
#include "tst_PayloadIdentifierReport.moc"
