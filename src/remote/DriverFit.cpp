#include "remote/DriverFit.h"

#include <array>
#include <cmath>

namespace DriverFit {

namespace {

constexpr std::size_t kUnknowns = 3;
/// Rows of the normal equations, each with its right side.
using Equations = std::array<std::array<double, kUnknowns + 1>, kUnknowns>;

/// Steps are scaled to 0 to 1, so that their fourth powers stay comparable.
constexpr double kScale = Velmora::Sdi::DriverCharacteristics::kGainSteps - 1;

Equations normalEquations(const std::vector<DriverReading>& readings)
{
    Equations equations{};
    for (const DriverReading& reading : readings) {
        const double x = reading.step / kScale;
        const std::array<double, kUnknowns> powers{1, x, x * x};
        for (std::size_t row = 0; row < kUnknowns; ++row) {
            for (std::size_t column = 0; column < kUnknowns; ++column)
                equations[row][column] += powers[row] * powers[column];
            equations[row][kUnknowns] += powers[row] * reading.amplitude;
        }
    }
    return equations;
}

void subtract(Equations& equations, std::size_t pivot, std::size_t row)
{
    const double factor = equations[row][pivot] / equations[pivot][pivot];
    for (std::size_t column = pivot; column <= kUnknowns; ++column)
        equations[row][column] -= factor * equations[pivot][column];
}

/// By elimination: the matrix is positive definite, so that no rows need to be exchanged. False when it is
/// none.
bool solve(Equations& equations, std::array<double, kUnknowns>& result)
{
    constexpr double kSmallest = 1e-9;
    for (std::size_t pivot = 0; pivot < kUnknowns; ++pivot) {
        if (std::abs(equations[pivot][pivot]) < kSmallest)
            return false;
        for (std::size_t row = 0; row < kUnknowns; ++row) {
            if (row != pivot)
                subtract(equations, pivot, row);
        }
    }
    for (std::size_t i = 0; i < kUnknowns; ++i)
        result[i] = equations[i][kUnknowns] / equations[i][i];
    return true;
}

} // namespace

std::optional<Velmora::Sdi::DriverCharacteristics> fit(const std::vector<DriverReading>& readings)
{
    Equations equations = normalEquations(readings);
    std::array<double, kUnknowns> result{};
    if (!solve(equations, result))
        return std::nullopt;
    Velmora::Sdi::DriverCharacteristics found{result[0], result[1] / kScale, result[2] / (kScale * kScale),
                                              0};
    double squares = 0;
    for (const DriverReading& reading : readings)
        squares += std::pow(reading.amplitude - found.amplitudeAt(reading.step), 2);
    found.residual = std::sqrt(squares / static_cast<double>(readings.size()));
    return found;
}

} // namespace DriverFit
