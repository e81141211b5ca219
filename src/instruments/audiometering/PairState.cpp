#include "instruments/audiometering/PairState.h"

#include <cmath>

QString PairState::shownTitle() const
{
    const QString& left = channel(PairLayout::Left).name;
    const QString& right = channel(PairLayout::Right).name;
    if (left.isEmpty() && right.isEmpty())
        return title;
    return left == right || right.isEmpty() ? left : left + QStringLiteral(" \u00B7 ") + right;
}

QString PairState::dolbyELineText() const
{
    if (!dolbyELine)
        return {};
    if (!isDolbyELineRelative || !dolbyEIdealLine)
        return tr("Line %1").arg(*dolbyELine);
    const int distance = *dolbyELine - *dolbyEIdealLine;
    if (distance == 0)
        return tr("Ideal");
    return tr("Ideal %1%2").arg(distance < 0 ? QChar(0x2212) : QLatin1Char('+')).arg(std::abs(distance));
}

bool PairState::isMetered(Side side) const
{
    return channel(side).isPresent && !channel(side).content.isData();
}
