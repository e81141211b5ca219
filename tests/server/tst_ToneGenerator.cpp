#include "server/sources/ToneGenerator.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <numeric>
#include <vector>

using namespace Velmora::Server;

Q_DECLARE_METATYPE(Velmora::Server::ToneSignal)
Q_DECLARE_METATYPE(Velmora::Server::IdentPattern)
Q_DECLARE_METATYPE(Velmora::Server::BurstProgramme)

namespace {

constexpr std::size_t kSecond = kAudioSampleRate;

ToneChannel toneOf(ToneSignal signal, double hz = 1000.0, double dbfs = 0.0)
{
    ToneChannel settings;
    settings.signal = signal;
    settings.frequencyHz = hz;
    settings.levelDbfs = dbfs;
    return settings;
}

/// Reads on, in blocks of the sizes given, over and over.
std::vector<float> readOn(ToneGenerator& generator, std::size_t channel, std::size_t frames,
                          const std::vector<std::size_t>& blocks = {960})
{
    std::vector<float> samples;
    for (std::size_t i = 0; samples.size() < frames; ++i) {
        const auto count = std::min(blocks[i % blocks.size()], frames - samples.size());
        AudioBuffer buffer(count);
        const auto block = generator.read(buffer.planes());
        samples.insert(samples.end(), block.channels[channel], block.channels[channel] + block.frames);
    }
    return samples;
}

std::vector<float> generated(const ToneChannel& settings, std::size_t frames, std::uint64_t seed = 1)
{
    ToneGenerator generator(1, seed);
    generator.setChannel(0, settings);
    return readOn(generator, 0, frames);
}

double largestStep(const std::vector<float>& samples)
{
    double largest = 0.0;
    for (std::size_t i = 1; i < samples.size(); ++i)
        largest = std::max(largest, std::abs(static_cast<double>(samples[i]) - samples[i - 1]));
    return largest;
}

double correlation(const std::vector<float>& a, const std::vector<float>& b)
{
    const auto dot = [](const auto& x, const auto& y) {
        return std::inner_product(x.begin(), x.end(), y.begin(), 0.0);
    };
    return dot(a, b) / std::sqrt(dot(a, a) * dot(b, b));
}

/// Mean power of a narrow band around a frequency: windowed transforms of many short pieces.
double powerAt(const std::vector<float>& samples, double hz)
{
    constexpr std::size_t kPiece = 4800;
    double power = 0.0;
    for (std::size_t start = 0; start + kPiece <= samples.size(); start += kPiece) {
        const auto turn = std::polar(1.0, -2.0 * std::numbers::pi * hz / kAudioSampleRate);
        std::complex<double> factor = 1.0;
        std::complex<double> sum = 0.0;
        for (std::size_t i = 0; i < kPiece; ++i, factor *= turn) {
            const double window = std::sin(std::numbers::pi * static_cast<double>(i) / kPiece);
            sum += window * window * static_cast<double>(samples[start + i]) * factor;
        }
        power += std::norm(sum);
    }
    return power;
}

} // namespace

class tst_ToneGenerator : public WzTest {
    Q_OBJECT

private slots:
    void blockSizesDoNotMatter_data()
    {
        QTest::addColumn<ToneSignal>("signal");
        QTest::addColumn<IdentPattern>("ident");
        QTest::newRow("sine") << ToneSignal::Sine << IdentPattern::None;
        QTest::newRow("interrupted sine") << ToneSignal::Sine << IdentPattern::Glits;
        QTest::newRow("sweep") << ToneSignal::Sweep << IdentPattern::None;
        QTest::newRow("noise") << ToneSignal::PinkNoise << IdentPattern::None;
        QTest::newRow("bursts") << ToneSignal::Bursts << IdentPattern::None;
    }
    void blockSizesDoNotMatter()
    {
        QFETCH(ToneSignal, signal);
        QFETCH(IdentPattern, ident);
        auto settings = toneOf(signal, 997.3);
        settings.ident = ident;
        settings.sweepSeconds = 0.1;
        settings.burstProgramme = BurstProgramme::Single;
        settings.burstPeriodSeconds = 0.1;
        ToneGenerator whole;
        whole.setAllChannels(settings);
        ToneGenerator pieces;
        pieces.setAllChannels(settings);
        const auto expected = readOn(whole, 7, kSecond, {kSecond});
        QVERIFY(largestStep(expected) > 0.01);
        QCOMPARE(readOn(pieces, 7, kSecond, {1, 256, 257, 13, 1000, 255}), expected);
        QCOMPARE(pieces.position(), std::uint64_t{kSecond});
    }

    void sinesAreExact_data()
    {
        QTest::addColumn<double>("hz");
        QTest::addColumn<double>("dbfs");
        QTest::addColumn<double>("degrees");
        QTest::newRow("alignment") << 1000.0 << -18.0 << 0.0;
        QTest::newRow("no whole number") << 997.31 << 0.0 << 0.0;
        QTest::newRow("low, late") << 20.0 << -60.0 << -90.0;
        QTest::newRow("high, early, loud") << 19999.9 << 12.0 << 400.0;
    }
    void sinesAreExact()
    {
        QFETCH(double, hz);
        QFETCH(double, dbfs);
        QFETCH(double, degrees);
        auto settings = toneOf(ToneSignal::Sine, hz, dbfs);
        settings.phaseDegrees = degrees;
        const auto samples = generated(settings, 10 * kSecond);
        const double peak = std::pow(10.0, dbfs / 20.0);
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const double turns = hz * static_cast<double>(i) / kAudioSampleRate + degrees / 360.0;
            const double expected = peak * std::sin(2.0 * std::numbers::pi * turns);
            QVERIFY(std::abs(samples[i] - expected) < 1.0e-6 * peak);
        }
    }

    void changesKeepThePhase()
    {
        ToneGenerator generator(2);
        generator.setAllChannels(toneOf(ToneSignal::Sine, 1000.0));
        auto samples = readOn(generator, 0, 1001);
        generator.setAllChannels(toneOf(ToneSignal::Sine, 1500.0));
        const auto more = readOn(generator, 0, 1001);
        samples.insert(samples.end(), more.begin(), more.end());
        QVERIFY(largestStep(samples) < 2.0 * std::numbers::pi * 1500.0 / kAudioSampleRate);

        // A channel that begins later falls in with its fellow.
        generator.setChannel(1, toneOf(ToneSignal::Silence));
        (void)readOn(generator, 0, 77);
        generator.setAllChannels(toneOf(ToneSignal::Silence));
        generator.setChannel(0, toneOf(ToneSignal::Sine, 440.0));
        (void)readOn(generator, 0, 77);
        generator.setChannel(1, toneOf(ToneSignal::Sine, 440.0));
        AudioBuffer buffer(500);
        (void)generator.read(buffer.planes());
        QVERIFY(std::equal(buffer.plane(0), buffer.plane(0) + 500, buffer.plane(1)));
    }

    void mutedChannelsGoOnRunning()
    {
        ToneGenerator generator(1);
        auto settings = toneOf(ToneSignal::PinkNoise);
        generator.setChannel(0, settings);
        auto samples = readOn(generator, 0, 500);
        settings.muted = true;
        generator.setChannel(0, settings);
        const auto muted = readOn(generator, 0, 500);
        QVERIFY(std::all_of(muted.begin(), muted.end(), [](float s) { return s == 0.0F; }));
        settings.muted = false;
        generator.setChannel(0, settings);
        const auto expected = generated(settings, 1500);
        QVERIFY(std::equal(expected.begin() + 1000, expected.end(), readOn(generator, 0, 500).begin()));
    }

    void sweepsAreLogarithmicAndUnbroken()
    {
        auto settings = toneOf(ToneSignal::Sweep, 100.0);
        settings.sweepEndHz = 6400.0;
        settings.sweepSeconds = 6.0; // an octave a second
        const auto samples = generated(settings, 13 * kSecond);
        QVERIFY(largestStep(samples) < 2.0 * std::numbers::pi * 6400.0 / kAudioSampleRate);
        for (std::size_t second = 0; second < 12; ++second) {
            std::size_t crossings = 0;
            for (std::size_t i = second * kSecond + 1; i <= (second + 1) * kSecond; ++i)
                crossings += (samples[i - 1] < 0.0F) != (samples[i] < 0.0F);
            // The mean frequency of an octave from f to 2f at an even pace is f / ln 2.
            const double expected = 2.0 * 100.0 * std::pow(2.0, second % 6) / std::numbers::ln2;
            QVERIFY2(std::abs(static_cast<double>(crossings) - expected) <= 2.0,
                     qPrintable(QStringLiteral("%1 in second %2").arg(crossings).arg(second)));
        }
    }

    void pinkNoiseHasItsLevelAndSlope()
    {
        const auto samples = generated(toneOf(ToneSignal::PinkNoise, 1000.0, -20.0), 60 * kSecond);
        const double power = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0)
            / static_cast<double>(samples.size());
        QVERIFY2(std::abs(10.0 * std::log10(2.0 * power) - -20.0) < 0.3, qPrintable(QString::number(power)));

        const auto levelAround = [&](double centre) { // of a third of an octave, per Hz
            double sum = 0.0;
            for (int i = -3; i <= 3; ++i)
                sum += powerAt(samples, centre * std::pow(2.0, i / 21.0));
            return 10.0 * std::log10(sum);
        };
        const double reference = levelAround(1000.0);
        for (const double hz : {100.0, 300.0, 3000.0, 8000.0, 18000.0}) {
            const double expected = -10.0 * std::log10(hz / 1000.0);
            const double found = levelAround(hz) - reference;
            QVERIFY2(std::abs(found - expected) < 0.7,
                     qPrintable(QStringLiteral("%1 Hz: %2").arg(hz).arg(found)));
        }
    }

    void noiseDependsOnSeedAndChannelOnly()
    {
        const auto noise = toneOf(ToneSignal::PinkNoise);
        const auto first = generated(noise, 10 * kSecond, 5);
        QCOMPARE(generated(noise, 10 * kSecond, 5), first);
        QVERIFY(std::abs(correlation(first, generated(noise, 10 * kSecond, 6))) < 0.1);
        ToneGenerator generator(kAudioChannels, 5);
        generator.setAllChannels(noise);
        QVERIFY(std::abs(correlation(first, readOn(generator, 1, 10 * kSecond))) < 0.1);
    }

    void burstsHaveTheirLengths_data()
    {
        QTest::addColumn<BurstProgramme>("programme");
        QTest::addColumn<QVector<int>>("lengths");
        QTest::newRow("type I") << BurstProgramme::TypeI << QVector<int>{48000, 480, 240, 144, 20};
        QTest::newRow("type II") << BurstProgramme::TypeII << QVector<int>{48000, 4800, 480, 240, 72, 24};
        QTest::newRow("free") << BurstProgramme::Single << QVector<int>{96};
    }
    void burstsHaveTheirLengths()
    {
        QFETCH(BurstProgramme, programme);
        QFETCH(QVector<int>, lengths);
        auto settings = toneOf(ToneSignal::Bursts, 5000.0);
        settings.phaseDegrees = 90.0; // so that neither the first nor the last sample is 0
        settings.burstProgramme = programme;
        settings.burstSeconds = 0.002;
        ToneGenerator generator(1);
        (void)readOn(generator, 0, 333); // a programme begins when it is set
        generator.setChannel(0, settings);
        lengths.append(lengths.first()); // and then begins anew
        for (const int length : std::as_const(lengths)) {
            const auto slot = readOn(generator, 0, 6 * kSecond);
            QVERIFY(std::abs(slot.front() - 1.0F) < 1.0e-6F);
            const auto last = std::find_if(slot.rbegin(), slot.rend(), [](float s) { return s != 0.0F; });
            QCOMPARE(static_cast<int>(slot.rend() - last), length);
        }
    }

    void identsFollowTheirConvention_data()
    {
        QTest::addColumn<IdentPattern>("pattern");
        QTest::addColumn<int>("channel");
        QTest::addColumn<QString>("quarterSeconds");
        const auto rows = [](const char* name, IdentPattern pattern, int channel, const QString& quarters) {
            QTest::addRow("%s, channel %d", name, channel) << pattern << channel << quarters;
        };
        rows("EBU stereo", IdentPattern::EbuStereo, 0, QStringLiteral(".###########.###########"));
        rows("EBU stereo", IdentPattern::EbuStereo, 1, QStringLiteral("########################"));
        rows("GLITS", IdentPattern::Glits, 0, QStringLiteral(".###############.###"));
        rows("GLITS", IdentPattern::Glits, 1, QStringLiteral("##.#.#############.#"));
        rows("GLITS", IdentPattern::Glits, 14, QStringLiteral(".###############.###"));
        const auto all = QStringLiteral("############..");
        const auto off = QStringLiteral("....");
        const auto on = QStringLiteral("##..");
        rows("multichannel", IdentPattern::EbuMultichannel, 0, all + on + off.repeated(15) + all);
        rows("multichannel", IdentPattern::EbuMultichannel, 6,
             all + off.repeated(6) + on + off.repeated(9) + all);
        rows("multichannel", IdentPattern::EbuMultichannel, 15, all + off.repeated(15) + on + all);
    }
    void identsFollowTheirConvention()
    {
        QFETCH(IdentPattern, pattern);
        QFETCH(int, channel);
        QFETCH(QString, quarterSeconds);
        auto settings = toneOf(ToneSignal::Sine, 1000.0);
        settings.phaseDegrees = 90.0;
        settings.ident = pattern;
        ToneGenerator generator;
        generator.setAllChannels(settings);
        QString found;
        for (int i = 0; i < quarterSeconds.size(); ++i) {
            const auto quarter = readOn(generator, static_cast<std::size_t>(channel), kSecond / 4);
            const auto silent = std::count(quarter.begin(), quarter.end(), 0.0F);
            const bool isOn =
                quarter.front() != 0.0F && quarter.back() != 0.0F && silent < kAudioSampleRate / 40;
            const bool isOff = silent == kAudioSampleRate / 4;
            found += isOn ? QLatin1Char('#') : isOff ? QLatin1Char('.') : QLatin1Char('?');
        }
        QCOMPARE(found, quarterSeconds);
    }

    void absentAndUnwantedChannels()
    {
        ToneGenerator generator(3);
        AudioBuffer buffer(400);
        buffer.plane(3)[7] = 42.0F;
        auto planes = buffer.planes();
        planes.channels[1] = nullptr;
        const auto block = generator.read(planes);
        QCOMPARE(block.frames, std::size_t{400});
        QVERIFY(block.channels[0] == buffer.plane(0) && block.channels[2] == buffer.plane(2));
        QVERIFY(!block.channels[1] && !block.channels[3] && !block.channels[15]);
        QCOMPARE(buffer.plane(3)[7], 42.0F);
        // The unwanted channel did not stand still.
        const auto next = generator.read(buffer.planes());
        QCOMPARE(next.position, std::uint64_t{400});
        QVERIFY(std::equal(next.channels[1], next.channels[1] + 400, next.channels[0]));
    }

    void figuresAreLimited_data()
    {
        QTest::addColumn<double>("figure");
        QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("minus infinite") << -std::numeric_limits<double>::infinity();
        QTest::newRow("huge") << 1.0e300;
        QTest::newRow("zero") << 0.0;
        QTest::newRow("tiny negative") << -1.0e-300;
    }
    void figuresAreLimited()
    {
        QFETCH(double, figure);
        for (const auto signal :
             {ToneSignal::Sine, ToneSignal::Sweep, ToneSignal::PinkNoise, ToneSignal::Bursts}) {
            ToneChannel settings;
            settings.signal = signal;
            settings.burstProgramme = BurstProgramme::Single;
            for (auto* const member :
                 {&settings.frequencyHz, &settings.levelDbfs, &settings.phaseDegrees, &settings.sweepEndHz,
                  &settings.sweepSeconds, &settings.burstSeconds, &settings.burstPeriodSeconds})
                *member = figure;
            for (const float sample : generated(settings, 1000))
                QVERIFY(std::isfinite(sample) && std::abs(sample) < 200.0F);
        }
    }
};

WZ_TEST_CLASS(tst_ToneGenerator)
#include "tst_ToneGenerator.moc"
