#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>
#include <random>
#include <vector>

namespace Velmora::Server {

/// What a deliberately unreliable instrument does to what it sends, for tests of clients.
///
/// Written as "drop=0.1,delay=20,split=64,corrupt=0.01,disconnect=500"; what is not named does not happen.
struct FaultPlan {
    double drop = 0.0; ///< share of packets that are not sent, 0 to 1
    std::chrono::milliseconds delay{0}; ///< by which packets by TCP come late; up to a minute
    int split = 0; ///< largest datagram in bytes; 0 for no limit of the plan's
    double corrupt = 0.0; ///< share of raw data frames with one byte changed, 0 to 1
    int disconnect = 0; ///< packets by TCP after which a client is cut off; 0 for never

    bool operator==(const FaultPlan&) const = default;

    bool isEmpty() const { return *this == FaultPlan(); }

    /// The plan that @p text describes, or nothing, with the reason in @p error.
    static std::optional<FaultPlan> parse(const QString& text, QString& error);
};

/// Carries a plan out. The same seed makes the same faults in the same order.
class FaultInjector {
public:
    explicit FaultInjector(const FaultPlan& plan = {}, unsigned seed = 1);

    const FaultPlan& plan() const { return m_plan; }
    /// Whether the next packet is to be lost.
    bool loses();
    /// Changes a byte of the frame, now and then.
    void damage(QByteArray& frame);

private:
    bool happens(double share);

    FaultPlan m_plan;
    std::mt19937 m_random;
};

} // namespace Velmora::Server
