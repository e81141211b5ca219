#pragma once

#include <QPointer>
#include <QWidget>

class FocusSweepManager;
class Setting;
class TouchAction;
class WzCustomStyle;

/// A strip above the function bar in which one number is changed, by knob, keys or finger. It goes when it is
/// left: by OK, back, Escape, or when the focus moves elsewhere.
class SettingStrip : public QWidget {
    Q_OBJECT
public:
    SettingStrip(const WzCustomStyle& style, QWidget* parent);
    ~SettingStrip() override;

    void edit(Setting& setting);

public slots:
    void leave();

signals:
    /// It has come, and wants a place.
    void shown();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeControl(QWidget& control);

    const WzCustomStyle& m_style;
    FocusSweepManager* const m_sweep;
    TouchAction* m_action = nullptr;
    QPointer<QWidget> m_focusBefore;
};
