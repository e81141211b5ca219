#include "server/sources/patterns/BurntInText.h"

#include <array>

namespace Velmora::Server {

namespace {

struct Glyph {
    char character;
    std::array<std::uint8_t, BurntInText::kHeight> rows; ///< five bits each, the left one highest
};

constexpr std::array kGlyphs{
    Glyph{'0', {0x0E, 0x11, 0x13, 0x15, 0x19, 0x11, 0x0E}},
    Glyph{'1', {0x04, 0x0C, 0x04, 0x04, 0x04, 0x04, 0x0E}},
    Glyph{'2', {0x0E, 0x11, 0x01, 0x06, 0x08, 0x10, 0x1F}},
    Glyph{'3', {0x1F, 0x02, 0x04, 0x02, 0x01, 0x11, 0x0E}},
    Glyph{'4', {0x02, 0x06, 0x0A, 0x12, 0x1F, 0x02, 0x02}},
    Glyph{'5', {0x1F, 0x10, 0x1E, 0x01, 0x01, 0x11, 0x0E}},
    Glyph{'6', {0x06, 0x08, 0x10, 0x1E, 0x11, 0x11, 0x0E}},
    Glyph{'7', {0x1F, 0x01, 0x02, 0x04, 0x08, 0x08, 0x08}},
    Glyph{'8', {0x0E, 0x11, 0x11, 0x0E, 0x11, 0x11, 0x0E}},
    Glyph{'9', {0x0E, 0x11, 0x11, 0x0F, 0x01, 0x02, 0x0C}},
    Glyph{'C', {0x0E, 0x11, 0x10, 0x10, 0x10, 0x11, 0x0E}},
    Glyph{'I', {0x0E, 0x04, 0x04, 0x04, 0x04, 0x04, 0x0E}},
    Glyph{'L', {0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x1F}},
    Glyph{'N', {0x11, 0x19, 0x15, 0x13, 0x11, 0x11, 0x11}},
    Glyph{'P', {0x1E, 0x11, 0x11, 0x1E, 0x10, 0x10, 0x10}},
    Glyph{'S', {0x0F, 0x10, 0x10, 0x0E, 0x01, 0x01, 0x1E}},
    Glyph{'Y', {0x11, 0x11, 0x0A, 0x04, 0x04, 0x04, 0x04}},
};

} // namespace

bool BurntInText::isLit(char character, int column, int row)
{
    for (const Glyph& glyph : kGlyphs) {
        if (glyph.character == character)
            return column < 5 && ((glyph.rows.at(static_cast<std::size_t>(row)) >> (4 - column)) & 1) != 0;
    }
    return false;
}

void BurntInText::paint(PictureCanvas& canvas, std::string_view text) const
{
    for (std::size_t i = 0; i < text.size(); ++i)
        paintCharacter(canvas, static_cast<int>(i), text[i]);
}

void BurntInText::repaint(PictureCanvas& canvas, std::string_view before, std::string_view text) const
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (before[i] != text[i])
            paintCharacter(canvas, static_cast<int>(i), text[i]);
    }
}

std::string BurntInText::number(std::uint64_t value, std::size_t digits)
{
    const std::string text = std::string(digits, '0') + std::to_string(value);
    return text.substr(text.size() - digits);
}

void BurntInText::paintCharacter(PictureCanvas& canvas, int place, char character) const
{
    const Colour black = canvas.codes().grey(0.0);
    const Colour white = canvas.codes().grey(1.0);
    for (int row = 0; row < kHeight; ++row) {
        for (int column = 0; column < kAdvance; ++column) {
            const int x = m_x + (place * kAdvance + column) * m_dot;
            const int y = m_y + row * m_dot;
            canvas.fill({x, y, x + m_dot, y + m_dot}, isLit(character, column, row) ? white : black);
        }
    }
}

} // namespace Velmora::Server
