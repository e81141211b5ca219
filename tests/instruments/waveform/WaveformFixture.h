#pragma once

#include "feed/SegmentNames.h"
#include "feed/SharedPictureWriter.h"
#include "gui/support/WindowFixture.h"
#include "instruments/waveform/Waveform.h"
#include "instruments/waveform/WaveformGraticuleWidget.h"
#include "server/measure/waveform/RenderWaveform.h"
#include "server/sources/PatternCatalogue.h"
#include "server/sources/PatternGenerator.h"
#include "server/sources/VideoFormats.h"
#include "types/waveform/WaveformPictures.h"

#include <QTest>

#include <algorithm>
#include <unistd.h>

/// Pictures at 50 Hz.
inline Velmora::Server::VideoFormat
formatOf(Velmora::Sdi::PayloadId::TransferCurve curve,
         Velmora::Sdi::PayloadId::BitDepth depth = Velmora::Sdi::PayloadId::BitDepth::Bits10,
         int height = 1080)
{
    using namespace Velmora::Sdi::PayloadId;
    Velmora::Server::VideoFormat format;
    format.height = height;
    format.width = height * 16 / 9;
    format.rateNumerator = 50;
    format.transfer = curve;
    format.depth = depth;
    format.colourimetry = curve == TransferCurve::SdrTv ? Colourimetry::Rec709 : Colourimetry::Rec2020;
    // 12 bits and full range go with 4:4:4.
    if (depth != BitDepth::Bits10)
        format.sampling = SampleStructure::YCbCr444;
    return format;
}

/// A window of the waveform, and an instrument's side of it that draws what the window shows.
class WaveformFixture : public WindowFixture {
public:
    explicit WaveformFixture(QSize size = {960, 540})
    {
        SupportedSubWindow kind;
        kind.windowTitle = QStringLiteral("Waveform");
        kind.contentClassName = QString(Waveform::kClassName);
        kind.icon = QString(Waveform::kIconName);
        kind.makeContent = [](WzSubWindow& subWindow) {
            return new Waveform(&subWindow, Velmora::Wz::Device::full());
        };
        catalogue.add(kind);
        manager.onDefaultWindowRequested(kind.windowTitle, kind.contentClassName, WindowRole::Instrument);
        window = area.wzSubWindows().front();
        waveform = qobject_cast<Waveform*>(window->content());
        window->setBounds({QPoint(0, 0), size});
        waveform->picture().setHost({QHostAddress(QHostAddress::LocalHost), port(), 0});
        connectInstrument();
        tellDefaults();
    }
    ~WaveformFixture() override { qDeleteAll(area.wzSubWindows()); }

    /// The elements say that the input has pictures of that format, and the instrument shows a pattern.
    void input(const Velmora::Server::VideoFormat& format, const char* pattern = "bars-100")
    {
        m_source = std::make_unique<Velmora::Server::PatternGenerator>(
            Velmora::Server::PatternCatalogue::make(pattern), format);
        QStringList items{QStringLiteral("false")};
        for (const auto word : Velmora::Server::VideoFormats::standardOf(format)->getPayloadIdentifierWords())
            items << QString::number(word, 16);
        waveform->fromStatusCoreActiveSdiStandardUpdated(items, {}, true);
    }

    /// Draws a picture by the settings of the window, as the instrument would, and waits until it is there.
    void draw()
    {
        using namespace Velmora;
        const WaveformDisplay& display = waveform->graticule().display();
        settings.presentation = display.presentation;
        settings.displayMode = WaveformTypes::DisplayMode::Custom;
        settings.customChannels = {};
        for (std::size_t i = 0; i < display.channels.size(); ++i)
            settings.customChannels[i] = {true, display.channels[i].component};
        settings.view = display.view;
        settings.fullWidth = display.isFullWidth;
        settings.fullRangeMode = display.fullRangeMode;
        write(Server::renderWaveform(*m_source->next(), settings, display.content));
    }

    void write(const QImage& image)
    {
        const std::string name =
            Velmora::WaveformTypes::Pictures::imageName(waveform->graticule().display().content);
        if (name != m_image) {
            m_image = name;
            m_writer = std::make_unique<Velmora::Feed::SharedPictureWriter>(
                Velmora::Feed::SegmentNames::nameOf(port(), name));
        }
        const auto buffer = m_writer->begin(image.width(), image.height());
        for (int y = 0; y < image.height(); ++y) {
            const auto* const line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
            std::copy_n(line, image.width(), buffer.pixels + y * buffer.stride);
        }
        m_writer->publish({});
        QTRY_VERIFY(waveform->picture().state() == FeedPicture::State::Live
                    || waveform->picture().state() == FeedPicture::State::OtherSize);
    }
    /// Of the size that fits.
    QImage emptyPicture() const
    {
        QImage picture(waveform->graticule().display().geometry().imageRect().size(),
                       QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        return picture;
    }
    void stopWriter() { m_writer.reset(); }

    QImage screen() { return window->grab().toImage(); }
    /// What of the window the graticule is.
    QPoint graticuleTopLeft() const { return waveform->graticule().mapTo(window, QPoint(0, 0)); }

    WzSubWindow* window = nullptr;
    Waveform* waveform = nullptr;
    Velmora::Server::WaveformSettings settings;

private:
    /// An instrument that no other process of this machine has.
    static int port() { return static_cast<int>(::getpid()) + 300000; }

    void tellDefaults()
    {
        const QStringList zero{QStringLiteral("0")};
        const QStringList off{QStringLiteral("false")};
        waveform->fromConfigCoreWaveformDisplayModeUpdated(zero, {}, true);
        waveform->fromConfigCoreWaveformPresentationModeUpdated(zero, {}, true);
        waveform->fromConfigCoreWaveformVerticalScaleModeUpdated(zero, {}, true);
        waveform->fromConfigCoreWaveformHorizontalScaleModeUpdated(zero, {}, true);
        waveform->fromConfigCoreWaveformVerticalNitsScaleModeUpdated(zero, {}, true);
        waveform->fromConfigCoreWaveformSLog3ModeUpdated(zero, {}, true);
        waveform->fromConfigCoreWaveformFullRangeModeUpdated(zero, {}, true);
        waveform->fromConfigCoreWaveformFullWidthModeUpdated(off, {}, true);
        waveform->fromConfigCoreAnalyserModeUpdated({QStringLiteral("SDI")}, {}, true);
    }

    std::unique_ptr<Velmora::Server::PatternGenerator> m_source;
    std::string m_image;
    std::unique_ptr<Velmora::Feed::SharedPictureWriter> m_writer;
};
