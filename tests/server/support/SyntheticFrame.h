#pragma once

#include "server/sources/VideoFrame.h"

#include <array>
#include <functional>
#include <vector>

/// A picture whose samples a test sets exactly.
class SyntheticFrame {
public:
    using Sampling = Velmora::Sdi::PayloadId::SampleStructure;
    using Depth = Velmora::Sdi::PayloadId::BitDepth;

    SyntheticFrame(int width, int height, Sampling sampling, Depth depth)
    {
        m_frame.format.width = width;
        m_frame.format.height = height;
        m_frame.format.rateNumerator = 50;
        m_frame.format.sampling = sampling;
        m_frame.format.depth = depth;
        const bool isRgb = sampling == Sampling::Rgb444 || sampling == Sampling::RgbA4444;
        const bool hasHalfLines = sampling == Sampling::YCbCr420;
        const bool hasHalfWidth =
            sampling == Sampling::YCbCr422 || sampling == Sampling::YCbCrA4224 || hasHalfLines;
        const bool hasAlpha = sampling == Sampling::YCbCrA4224 || sampling == Sampling::YCbCrA4444
            || sampling == Sampling::RgbA4444;
        for (std::size_t i = 0; i < (hasAlpha ? 4U : 3U); ++i) {
            const bool isChroma = !isRgb && (i == 1 || i == 2);
            addPlane(i, isChroma && hasHalfWidth ? (width + 1) / 2 : width,
                     isChroma && hasHalfLines ? (height + 1) / 2 : height);
        }
    }
    SyntheticFrame(const SyntheticFrame&) = delete;
    SyntheticFrame& operator=(const SyntheticFrame&) = delete;

    Velmora::Server::VideoFormat& format() { return m_frame.format; }
    const Velmora::Server::VideoFrame& frame() const { return m_frame; }

    /// Sets every sample of a plane to @p code of its position.
    void fill(std::size_t plane, const std::function<int(int x, int y)>& code)
    {
        const auto& view = m_frame.planes[plane];
        for (int y = 0; y < view.height; ++y)
            for (int x = 0; x < view.width; ++x)
                at(plane, x, y) = static_cast<std::uint16_t>(code(x, y));
    }
    void fill(std::size_t plane, int code)
    {
        fill(plane, [code](int, int) { return code; });
    }

    std::uint16_t& at(std::size_t plane, int x, int y)
    {
        return m_samples[plane][static_cast<std::size_t>(y * m_frame.planes[plane].stride + x)];
    }

private:
    void addPlane(std::size_t plane, int width, int height)
    {
        // Lines lie apart, and what lies between them must never be looked at.
        constexpr int kBetweenLines = 3;
        const auto stride = static_cast<std::ptrdiff_t>(width + kBetweenLines);
        m_samples[plane].assign(static_cast<std::size_t>(stride * height), 0xFFFF);
        m_frame.planes[plane] = {m_samples[plane].data(), width, height, stride};
        fill(plane, 0);
    }

    std::array<std::vector<std::uint16_t>, 4> m_samples;
    Velmora::Server::VideoFrame m_frame;
};
