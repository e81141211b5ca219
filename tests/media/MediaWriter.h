#pragma once

#include "server/sources/AudioSource.h"
#include "server/sources/VideoSource.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Codes pictures and sound into a file, with FFmpeg's own encoders. Names are FFmpeg's.
struct MediaWriter {
    QByteArray codec; ///< of the pictures; none when empty
    QByteArray pixels; ///< layout that the codec is given
    QByteArray colours = "bt709 bt709 bt709 tv"; ///< primaries, transfer, matrix, range
    QByteArray options = {}; ///< of the encoder, "name=value"
    int frames = 5;
    QList<int> stamps = {}; ///< of the frames, in units of the frame rate; counted when empty
    QByteArray audioCodec = {}; ///< no sound when empty
    int audioStreams = 1;
    int audioChannels = 2; ///< of a stream
    int audioRate = 48000;

    /// Throws a text that says what failed.
    void write(const QString& path, Velmora::Server::VideoSource* video, Velmora::Server::AudioSource* audio,
               double seconds = 0) const;
};
