#include "server/core/FaultPlan.h"

#include <QStringList>

#include <limits>

namespace Velmora::Server {

namespace {

constexpr int kLongestDelayMs = 60000;
constexpr int kLargestSplit = 16384;

bool readShare(const QString& text, double& share)
{
    bool ok = false;
    share = text.toDouble(&ok);
    return ok && share >= 0.0 && share <= 1.0;
}

bool readCount(const QString& text, int largest, int& count)
{
    bool ok = false;
    count = text.toInt(&ok);
    return ok && count >= 0 && count <= largest;
}

bool readFault(FaultPlan& plan, const QString& name, const QString& value)
{
    if (name == QLatin1String("drop"))
        return readShare(value, plan.drop);
    if (name == QLatin1String("corrupt"))
        return readShare(value, plan.corrupt);
    if (name == QLatin1String("split"))
        return readCount(value, kLargestSplit, plan.split);
    if (name == QLatin1String("disconnect"))
        return readCount(value, std::numeric_limits<int>::max(), plan.disconnect);
    if (name == QLatin1String("delay")) {
        int milliseconds = 0;
        const bool ok = readCount(value, kLongestDelayMs, milliseconds);
        plan.delay = std::chrono::milliseconds(milliseconds);
        return ok;
    }
    return false;
}

} // namespace

std::optional<FaultPlan> FaultPlan::parse(const QString& text, QString& error)
{
    FaultPlan plan;
    const auto faults = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& fault : faults) {
        const int equals = fault.indexOf(QLatin1Char('='));
        if (equals < 0 || !readFault(plan, fault.left(equals).trimmed(), fault.mid(equals + 1).trimmed())) {
            error = QStringLiteral("'%1' is no fault (drop=SHARE, delay=MS, split=BYTES, corrupt=SHARE, "
                                   "disconnect=PACKETS)")
                        .arg(fault);
            return std::nullopt;
        }
    }
    return plan;
}

FaultInjector::FaultInjector(const FaultPlan& plan, unsigned seed)
    : m_plan(plan)
    , m_random(seed)
{
}

bool FaultInjector::loses()
{
    return happens(m_plan.drop);
}

void FaultInjector::damage(QByteArray& frame)
{
    if (frame.isEmpty() || !happens(m_plan.corrupt))
        return;
    const int place = static_cast<int>(m_random() % static_cast<unsigned>(frame.size()));
    frame[place] = static_cast<char>(frame.at(place) ^ (1 + m_random() % 255));
}

bool FaultInjector::happens(double share)
{
    return share > 0.0 && std::uniform_real_distribution<double>(0.0, 1.0)(m_random) < share;
}

} // namespace Velmora::Server
