#include "server/RenderCommand.h"

#include "server/core/Instrument.h"
#include "server/measure/waveform/RenderWaveform.h"

#include <QImageWriter>
#include <QPainter>

#include <cstdio>

namespace Velmora::Server {

namespace {

int fail(const QString& problem)
{
    std::fprintf(stderr, "wz_instrument: %s\n", qPrintable(problem));
    return 1;
}

const VideoFrame* frameOf(VideoSource* source, int number)
{
    const VideoFrame* frame = nullptr;
    for (int i = 0; source && i <= number; ++i) {
        frame = source->next();
        if (!frame)
            return nullptr;
    }
    return frame;
}

} // namespace

int render(const RenderRequest& request, const SignalChoice& signal, unsigned seed)
{
    Instrument instrument(signal, {}, seed);
    if (!instrument.input().mediaError().isEmpty())
        return fail(
            QStringLiteral("cannot play '%1': %2").arg(signal.mediaFile, instrument.input().mediaError()));
    const VideoFrame* const frame = frameOf(instrument.input().pictures().get(), request.frame);
    if (!frame)
        return fail(QStringLiteral("the signal has no frame %1").arg(request.frame));
    const QImage trace = renderWaveform(*frame, request.settings, request.content);
    if (trace.isNull())
        return fail(QStringLiteral("nothing can be shown in %1x%2")
                        .arg(request.content.width())
                        .arg(request.content.height()));
    QImage picture(trace.size(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter(&picture).drawImage(0, 0, trace);
    QImageWriter writer(request.output, "png");
    if (!writer.write(picture))
        return fail(QStringLiteral("cannot write '%1': %2").arg(request.output, writer.errorString()));
    return 0;
}

} // namespace Velmora::Server
