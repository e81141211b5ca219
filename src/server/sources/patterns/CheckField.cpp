#include "server/sources/patterns/CheckField.h"

namespace Velmora::Server {

namespace {

constexpr int kEqualiserLuma = 0x198;
constexpr int kEqualiserChroma = 0x300;
constexpr int kPllLuma = 0x110;
constexpr int kPllChroma = 0x200;

/// The word that gives the scrambler the other polarity in every second frame. Its values and its place, the
/// first of the first active line, are not confirmed.
constexpr int kPolarityLumaSd = 0x080;
constexpr int kPolarityLumaHd = 0x190;
constexpr int kHighestSd = 576;

Colour colourOf(const PictureCanvas& canvas, int luma, int chroma)
{
    const CodeValues& codes = canvas.codes();
    return {codes.fromTenBits(luma), codes.fromTenBits(chroma), codes.fromTenBits(chroma)};
}

} // namespace

void CheckField::paint(PictureCanvas& canvas) const
{
    const int half = canvas.height() / 2;
    canvas.fill({0, 0, canvas.width(), half}, colourOf(canvas, kEqualiserLuma, kEqualiserChroma));
    canvas.fill({0, half, canvas.width(), canvas.height()}, colourOf(canvas, kPllLuma, kPllChroma));
}

void CheckField::advance(PictureCanvas& canvas, std::uint64_t number) const
{
    const int polarity = canvas.height() <= kHighestSd ? kPolarityLumaSd : kPolarityLumaHd;
    canvas.setPixel(0, 0, colourOf(canvas, number % 2 == 1 ? polarity : kEqualiserLuma, kEqualiserChroma));
}

} // namespace Velmora::Server
