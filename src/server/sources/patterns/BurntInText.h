#pragma once

#include "server/sources/PictureCanvas.h"

#include <string>
#include <string_view>

namespace Velmora::Server {

/// White text on black in a picture, in letters of 5 x 7 dots. Digits and the few capitals that patterns need
/// exist; every other character is a space.
class BurntInText {
public:
    /// Dots from one character to the next, and high.
    static constexpr int kAdvance = 6;
    static constexpr int kHeight = 7;

    /// @p dot is the size of a dot in pixels.
    BurntInText(int x, int y, int dot)
        : m_x(x)
        , m_y(y)
        , m_dot(dot)
    {
    }

    /// Whether the dot of a character in that column and row is white.
    static bool isLit(char character, int column, int row);

    void paint(PictureCanvas& canvas, std::string_view text) const;
    /// Paints only the characters in which @p text differs from @p before, which has the same length.
    void repaint(PictureCanvas& canvas, std::string_view before, std::string_view text) const;

    /// With leading zeros; what does not fit is cut off in front.
    static std::string number(std::uint64_t value, std::size_t digits);

private:
    void paintCharacter(PictureCanvas& canvas, int place, char character) const;

    int m_x;
    int m_y;
    int m_dot;
};

} // namespace Velmora::Server
