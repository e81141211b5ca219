#pragma once

#include "gui/framework/SupportedSubWindow.h"

#include <QObject>

#include <vector>

/// The catalogue: the kinds of window that this instrument variant offers, in the order of the launcher.
class SupportedSubWindows : public QObject {
    Q_OBJECT
public:
    explicit SupportedSubWindows(Velmora::Wz::Device device, QObject* parent = nullptr);

    Velmora::Wz::Device device() const { return m_device; }

    /// A kind that the variant does not support is left out.
    void add(SupportedSubWindow kind);

    const std::vector<SupportedSubWindow>& getAvailableSubWindows() const { return m_kinds; }
    /// Null when there is none.
    const SupportedSubWindow* find(const QString& title, const QString& contentClassName,
                                   WindowRole role) const;

    /// Asks for a window of that kind.
    void request(const SupportedSubWindow& kind);

signals:
    void windowRequested(QString title, QString contentClassName, WindowRole role);

private:
    const Velmora::Wz::Device m_device;
    std::vector<SupportedSubWindow> m_kinds;
};
