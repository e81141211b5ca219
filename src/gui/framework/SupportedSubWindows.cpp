#include "gui/framework/SupportedSubWindows.h"

#include <algorithm>

SupportedSubWindows::SupportedSubWindows(Velmora::Wz::Device device, QObject* parent)
    : QObject(parent)
    , m_device(device)
{
}

void SupportedSubWindows::add(SupportedSubWindow kind)
{
    if (m_device.supports(kind.neededFeatures))
        m_kinds.push_back(std::move(kind));
}

const SupportedSubWindow* SupportedSubWindows::find(const QString& title, const QString& contentClassName,
                                                    WindowRole role) const
{
    const auto found = std::find_if(m_kinds.begin(), m_kinds.end(), [&](const SupportedSubWindow& kind) {
        return kind.is(title, contentClassName, role);
    });
    return found == m_kinds.end() ? nullptr : &*found;
}

void SupportedSubWindows::request(const SupportedSubWindow& kind)
{
    emit windowRequested(kind.windowTitle, kind.contentClassName, kind.role);
}
