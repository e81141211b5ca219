#include "types/ip/Supported2110VideoStandards.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSet>

#include <functional>

using namespace Velmora::IpTypes;

namespace {

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

using TextOfNumber = std::function<QString(unsigned)>;

template<typename Code>
TextOfNumber wholeRange(QString (*convert)(Code))
{
    return [convert](unsigned number) { return convert(static_cast<Code>(number)); };
}

using NumberOfText = std::function<int(const QString&)>;

/// -1 for a text that names nothing.
template<typename Code>
NumberOfText back(std::optional<Code> (*convert)(const QString&))
{
    return [convert](const QString& text) {
        const auto code = convert(text);
        return code ? static_cast<int>(*code) : -1;
    };
}

} // namespace

Q_DECLARE_METATYPE(TextOfNumber)
Q_DECLARE_METATYPE(NumberOfText)
Q_DECLARE_METATYPE(VideoStandard2110Params)

class tst_Supported2110VideoStandards : public WzTest {
    Q_OBJECT

private slots:
    /// The values of ST 2110-20:2022 clauses 7.2 and 7.3.
    void texts_data()
    {
        QTest::addColumn<TextOfNumber>("textOf");
        QTest::addColumn<NumberOfText>("numberOf");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("fallback");
        QTest::newRow("sampling") << wholeRange(convertSampleStructureToString)
                                  << back(convertStringToSampleStructure)
                                  << latin1("YCbCr-4:4:4 YCbCr-4:2:2 YCbCr-4:2:0 CLYCbCr-4:4:4 CLYCbCr-4:2:2 "
                                            "CLYCbCr-4:2:0 ICtCp-4:4:4 ICtCp-4:2:2 ICtCp-4:2:0 RGB XYZ KEY")
                                  << QString();
        QTest::newRow("depth") << wholeRange(convertBitDepthToString) << back(convertStringToBitDepth)
                               << latin1("8 10 12 16 16f") << QString();
        QTest::newRow("RANGE") << wholeRange(convertRangeToString) << back(convertStringToRange)
                               << latin1("NARROW FULLPROTECT FULL") << QString();
        QTest::newRow("colorimetry")
            << wholeRange(convertColorimetryToString) << back(convertStringToColorimetry)
            << latin1("BT601 BT709 BT2020 BT2100 ST2065-1 ST2065-3 UNSPECIFIED XYZ ALPHA")
            << latin1("UNSPECIFIED");
        QTest::newRow("TCS") << wholeRange(convertTransferCurveToString) << back(convertStringToTransferCurve)
                             << latin1("SDR PQ HLG LINEAR BT2100LINPQ BT2100LINHLG ST2065-1 ST428-1 DENSITY "
                                       "ST2115LOGS3 UNSPECIFIED")
                             << latin1("UNSPECIFIED");
    }
    void texts()
    {
        QFETCH(TextOfNumber, textOf);
        QFETCH(QString, table);
        QFETCH(QString, fallback);
        const QStringList known = table.split(QLatin1Char(' '));
        for (unsigned number = 0; number < 256; ++number)
            QCOMPARE(textOf(number), known.value(static_cast<int>(number), fallback));
        QFETCH(NumberOfText, numberOf);
        for (int number = 0; number < known.size(); ++number) {
            QCOMPARE(numberOf(known.at(number)), number);
            QCOMPARE(numberOf(known.at(number) + QLatin1Char(' ')), -1);
        }
        QCOMPARE(numberOf(QString()), -1);
    }

    void formatParameters_data()
    {
        QTest::addColumn<VideoStandard2110Params>("params");
        QTest::addColumn<QString>("line");
        QTest::newRow("720p59.94") << VideoStandard2110Params{.width = 1280,
                                                              .height = 720,
                                                              .frameRate = {60000, 1001}}
                                   << latin1("sampling=YCbCr-4:2:2; width=1280; height=720; "
                                             "exactframerate=60000/1001; depth=10; TCS=SDR; "
                                             "colorimetry=BT709; PM=2110GPM; SSN=ST2110-20:2017");
        QTest::newRow("1080i50") << VideoStandard2110Params{.width = 1920,
                                                            .height = 1080,
                                                            .interlaced = true,
                                                            .frameRate = {25, 1}}
                                 << latin1("sampling=YCbCr-4:2:2; width=1920; height=1080; "
                                           "exactframerate=25; depth=10; interlace; TCS=SDR; "
                                           "colorimetry=BT709; PM=2110GPM; SSN=ST2110-20:2017");
        QTest::newRow("1080psf23.98")
            << VideoStandard2110Params{.width = 1920,
                                       .height = 1080,
                                       .interlaced = true,
                                       .segmented = true,
                                       .frameRate = {24000, 1001}}
            << latin1("sampling=YCbCr-4:2:2; width=1920; height=1080; exactframerate=24000/1001; depth=10; "
                      "interlace; segmented; TCS=SDR; colorimetry=BT709; PM=2110GPM; SSN=ST2110-20:2017");
        QTest::newRow("2160p50 HLG")
            << VideoStandard2110Params{.width = 3840,
                                       .height = 2160,
                                       .colorimetry = Colorimetry2110::Bt2100,
                                       .transfer = TransferCurve2110::Hlg,
                                       .frameRate = {50, 1}}
            << latin1("sampling=YCbCr-4:2:2; width=3840; height=2160; exactframerate=50; depth=10; TCS=HLG; "
                      "colorimetry=BT2100; RANGE=NARROW; PM=2110GPM; SSN=ST2110-20:2017");
        QTest::newRow("RGB full range PQ")
            << VideoStandard2110Params{.width = 4096,
                                       .height = 2160,
                                       .sampling = SampleStructure2110::Rgb,
                                       .depth = BitDepth2110::Bits12,
                                       .range = Range2110::Full,
                                       .colorimetry = Colorimetry2110::Bt2100,
                                       .transfer = TransferCurve2110::Pq,
                                       .frameRate = {24, 1}}
            << latin1("sampling=RGB; width=4096; height=2160; exactframerate=24; depth=12; TCS=PQ; "
                      "colorimetry=BT2100; RANGE=FULL; PM=2110GPM; SSN=ST2110-20:2017");
        QTest::newRow("S-Log3 needs the 2022 edition")
            << VideoStandard2110Params{.width = 1920,
                                       .height = 1080,
                                       .colorimetry = Colorimetry2110::Bt2020,
                                       .transfer = TransferCurve2110::St2115LogS3,
                                       .frameRate = {60000, 1001}}
            << latin1("sampling=YCbCr-4:2:2; width=1920; height=1080; exactframerate=60000/1001; depth=10; "
                      "TCS=ST2115LOGS3; colorimetry=BT2020; PM=2110GPM; SSN=ST2110-20:2022");
        QTest::newRow("key") << VideoStandard2110Params{.width = 1920,
                                                        .height = 1080,
                                                        .sampling = SampleStructure2110::Key,
                                                        .colorimetry = Colorimetry2110::Alpha,
                                                        .frameRate = {50, 1}}
                             << latin1("sampling=KEY; width=1920; height=1080; exactframerate=50; depth=10; "
                                       "colorimetry=ALPHA; PM=2110GPM; SSN=ST2110-20:2022");
    }
    void formatParameters()
    {
        QFETCH(VideoStandard2110Params, params);
        QTEST(params.getFormatParameters(), "line");
    }

    void consistency_data()
    {
        QTest::addColumn<VideoStandard2110Params>("params");
        QTest::addColumn<bool>("consistent");
        const auto row = [](const char* name, bool consistent, const auto& change) {
            VideoStandard2110Params params{.width = 1920, .height = 1080, .frameRate = {25, 1}};
            change(params);
            QTest::newRow(name) << params << consistent;
        };
        row("progressive", true, [](auto&) {});
        row("smallest", true, [](auto& p) { p.width = p.height = 1; });
        row("largest", true, [](auto& p) { p.width = p.height = 32767; });
        row("no width", false, [](auto& p) { p.width = 0; });
        row("no height", false, [](auto& p) { p.height = 0; });
        row("too wide", false, [](auto& p) { p.width = 32768; });
        row("too high", false, [](auto& p) { p.height = 32768; });
        row("no rate", false, [](auto& p) { p.frameRate = {0, 1}; });
        row("endless rate", false, [](auto& p) { p.frameRate = {25, 0}; });
        row("interlaced", true, [](auto& p) { p.interlaced = true; });
        row("segments", true, [](auto& p) { p.interlaced = p.segmented = true; });
        row("progressive segments", false, [](auto& p) { p.segmented = true; });
        row("4:2:0", true, [](auto& p) { p.sampling = SampleStructure2110::ICtCp420; });
        row("interlaced 4:2:0", false, [](auto& p) {
            p.interlaced = true;
            p.sampling = SampleStructure2110::ICtCp420;
        });
        row("full protect", true, [](auto& p) { p.range = Range2110::FullProtect; });
        row("full protect of BT2100", false, [](auto& p) {
            p.range = Range2110::FullProtect;
            p.colorimetry = Colorimetry2110::Bt2100;
        });
    }
    void consistency()
    {
        QFETCH(VideoStandard2110Params, params);
        QTEST(params.areConsistent(), "consistent");
    }

    void rates_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("rates");
        const auto row = [](const char* format, const char* rates) {
            QTest::newRow(format) << latin1(format) << latin1(rates);
        };
        const char* const television = "23.98 24 25 29.97 30 50 59.94 60";
        const char* const cinema = "23.98 24 25 29.97 30 47.95 48 50 59.94 60";
        row("1280x720p", television);
        row("1920x1080p", television);
        row("1920x1080i", "50 59.94 60");
        row("1920x1080psf", "23.98 24 25 29.97 30");
        row("2048x1080p", cinema);
        row("2048x1080i", "50 59.94 60");
        row("2048x1080psf", "23.98 24 25 29.97 30");
        row("3840x2160p", television);
        row("4096x2160p", cinema);
        row("7680x4320p", television);
        row("8192x4320p", cinema);
    }
    void rates()
    {
        QFETCH(QString, format);
        const Supported2110VideoStandards supported;
        QStringList rates;
        for (const auto& standard : supported.getSupportedStandards()) {
            const QString name = standard.getStandardAsShortText();
            const QString rate = name.mid(format.size()).section(QLatin1Char(' '), 0, 0);
            const bool hasScan = name.startsWith(format) && rate.front().isDigit(); // "p", not "psf"
            if (hasScan && name.endsWith(QLatin1String(" YCbCr-4:2:2:10 BT2100 HLG")))
                rates += rate;
        }
        QTEST(rates.join(QLatin1Char(' ')), "rates");
    }

    void formatsArePairwiseDifferent()
    {
        const Supported2110VideoStandards supported;
        QSet<QString> lines;
        QSet<QString> names;
        for (const auto& standard : supported.getSupportedStandards()) {
            lines.insert(standard.getFormatParameters());
            names.insert(standard.getStandardAsShortText());
        }
        QCOMPARE(lines.size(), static_cast<int>(supported.getSupportedStandards().size()));
        QCOMPARE(names.size(), lines.size());
    }
};

WZ_TEST_CLASS(tst_Supported2110VideoStandards)
#include "tst_Supported2110VideoStandards.moc"
