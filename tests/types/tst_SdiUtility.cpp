#include "types/sdi/SdiUtility.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <functional>
#include <limits>

using namespace Velmora::Sdi;
using namespace Velmora::Sdi::PayloadId;

namespace {

/// One text per value of the type's whole range.
using TextOfNumber = std::function<QString(unsigned)>;

template<typename Code>
TextOfNumber wholeRange(QString (*convert)(Code))
{
    return [convert](unsigned number) { return convert(static_cast<Code>(number)); };
}

} // namespace

Q_DECLARE_METATYPE(TextOfNumber)

class tst_SdiUtility : public WzTest {
    Q_OBJECT

private slots:
    void texts_data()
    {
        QTest::addColumn<TextOfNumber>("textOf");
        QTest::addColumn<unsigned>("last");
        QTest::addColumn<QString>("table"); // from code 0 on
        QTest::addColumn<QString>("fallback");
        const auto row = [](const char* name, const TextOfNumber& textOf, const char* table,
                            const char* fallback, unsigned last = 255) {
            QTest::newRow(name) << textOf << last << QString::fromLatin1(table)
                                << QString::fromLatin1(fallback);
        };
        using namespace SdiUtility;
        row("data rate", wholeRange(convertSdiRateToString), "12G|6G|3G|1.5G|270M|No Signal|Unknown",
            "Error");
        row("transfer", wholeRange(convertTransferCurveToString), "SDR-TV|HLG|PQ|S-Log3", "Unknown");
        row(
            "colourimetry",
            [](unsigned n) {
                return n == 999 ? QStringLiteral("Unknown")
                                : convertColourimetryToString(static_cast<Colourimetry>(n));
            },
            "Rec.709|ColVancPacket|Rec.2020|Unknown", "Unknown", std::numeric_limits<std::uint16_t>::max());
        row("sampling", wholeRange(convertSampleStructureToString),
            "YCbCr:422|YCbCr:444|RGB:444|YCbCr:420|YCbCrA:4224|YCbCrA:4444|RGBA:4444|RESERVED|"
            "YCbCrD:4224|YCbCrD:4444|RGBD:4444|RESERVED|RESERVED|RESERVED|X'Y'Z':444|RESERVED",
            "RESERVED");
        row("depth", wholeRange(convertBitDepthToString), "10FR|10|12|12FR|8|Reserved", "Reserved");
        row("luminance", wholeRange(convertLuminanceSignalToString), "YCbCr|ICtCp", "Unknown");
        row("scan", wholeRange(convertScanToString), "Error|psf|i|p", "Error");
        row("level", wholeRange(convertLevelToString), "|A|B", "Error");
        row("mapping", wholeRange(convertSubImagePixelMappingFormatToString), "|2-SI|SqDv", "Error");
        row(
            "frame rate",
            [](unsigned n) {
                return convertPictureRateToString(static_cast<PictureRate>(n), PictureFormat::Progressive);
            },
            "NoRate|RsvRate|23.98|24|47.95|25|29.97|30|48|50|59.94|60|96|100|119.88|120", "RsvRate");
        for (const unsigned format : {0U, 2U, 255U}) {
            row(
                qPrintable(QStringLiteral("field rate %1").arg(format)),
                [format](unsigned n) {
                    return convertPictureRateToString(static_cast<PictureRate>(n),
                                                      static_cast<PictureFormat>(format));
                },
                "NoRate|RsvRate|47.95|48|95.90|50|59.94|60|96|100|119.88|120|192|200|239.76|240", "RsvRate");
        }
    }
    void texts()
    {
        QFETCH(TextOfNumber, textOf);
        QFETCH(unsigned, last);
        QFETCH(QString, table);
        QFETCH(QString, fallback);
        const QStringList known = table.split(QLatin1Char('|'));
        for (unsigned number = 0; number <= last; ++number)
            QCOMPARE(textOf(number), known.value(static_cast<int>(number), fallback));
    }

    void standardDefinitionColour()
    {
        QCOMPARE(SdiUtility::convertColourimetryToString(Colourimetry::Rec601), QStringLiteral("Rec.601"));
        QCOMPARE(SdiUtility::convertSampleStructureAndColourimetryToExplicitColourSpace(
                     SampleStructure::Rgb444, Colourimetry::Rec2020),
                 QStringLiteral("RGB:444 Rec.2020"));
    }

    void exactFrameRates()
    {
        QCOMPARE(SdiUtility::convertPictureRateToFrameRate(PictureRate::Rate59_94), (FrameRate{60000, 1001}));
        QCOMPARE(SdiUtility::convertPictureRateToFrameRate(static_cast<PictureRate>(16)), (FrameRate{0, 1}));
        // ST 352 table 2: the codes whose rate is divided by 1.001
        QVector<int> divided;
        for (int code = 0; code < 256; ++code) {
            if (SdiUtility::isPictureRate1001(static_cast<PictureRate>(code)))
                divided += code;
        }
        QCOMPARE(divided, (QVector<int>{2, 4, 6, 10, 14}));
    }
};

WZ_TEST_CLASS(tst_SdiUtility)
#include "tst_SdiUtility.moc"
