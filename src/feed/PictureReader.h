#pragma once

#include "feed/PictureView.h"

#include <functional>

namespace Velmora::Feed {

/// The reading end of one picture, wherever it comes from.
class PictureReader {
public:
    enum class State {
        NoPicture, ///< nothing has come yet
        Live,
        Stale, ///< the writer is gone; the last picture remains
    };
    enum class Result {
        Drawn,
        Unchanged, ///< no newer picture than the one that was drawn last; nothing was called
        Torn, ///< the picture was overwritten meanwhile: what was drawn of it must not be shown
        None,
    };
    /// Draws a picture, which holds during the call only.
    using Draw = std::function<void(const PictureView&)>;

    PictureReader() = default;
    PictureReader(const PictureReader&) = delete;
    PictureReader& operator=(const PictureReader&) = delete;
    virtual ~PictureReader() = default;

    /// Calls @p draw with the newest picture when there is a newer one than last time. After Torn, or with @p
    /// again, the newest one is drawn in any case.
    virtual Result read(const Draw& draw, bool again = false) = 0;
    virtual State state() = 0;
};

} // namespace Velmora::Feed
