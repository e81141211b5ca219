#include "gui/control/TouchAction.h"

#include "gui/control/OptionRow.h"
#include "gui/control/Setting.h"
#include "gui/control/ToggleSwitch.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSlider>
#include <QToolTip>

#include <cmath>

namespace {

constexpr int kRowHeight = 56;
constexpr int kCaptionHeight = 28;
constexpr int kEdge = 16;
constexpr int kGap = 4;
constexpr int kFieldWidth = 180;
constexpr int kStateIcon = 20;
constexpr QSize kValueBox(108, 40);

int sliderPosition(const Setting& setting, double number)
{
    return static_cast<int>(std::lround((number - setting.range().minimum) / setting.range().step));
}

bool isSideBySide(const Setting& setting)
{
    return setting.kind() == Setting::Kind::Options || setting.kind() == Setting::Kind::Choices;
}

} // namespace

TouchAction::TouchAction(Setting& setting, const WzCustomStyle& style, int width, QWidget* parent)
    : QWidget(parent)
    , m_setting(setting)
    , m_style(style)
{
    setAccessibleName(setting.title());
    setFocusPolicy(Qt::StrongFocus);
    setMinimumWidth(width);
    QWidget* const control = makeControl(width);
    control->setAccessibleName(setting.title());
    setFocusProxy(control);
    auto* const layout =
        new QBoxLayout(hasCaption() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    layout->setContentsMargins(kEdge, 0, kEdge, hasCaption() ? kGap : 0);
    layout->setSpacing(0);
    if (setting.kind() != Setting::Kind::Button) {
        auto* const title = new QLabel(setting.title(), this);
        title->setFont(Fonts::ofPixels(hasCaption() ? Fonts::kTitlePixels : Fonts::kBodyPixels));
        title->setFixedHeight(hasCaption() ? kCaptionHeight : kRowHeight);
        title->setForegroundRole(hasCaption() ? QPalette::PlaceholderText : QPalette::WindowText);
        layout->addWidget(title, 1);
    }
    if (setting.kind() == Setting::Kind::Slider) {
        auto* const row = new QHBoxLayout;
        row->addWidget(control);
        row->addSpacing(kEdge + kValueBox.width()); // for its value
        layout->addLayout(row);
    } else {
        layout->addWidget(control);
    }
    connect(&setting, &Setting::changed, this, &TouchAction::showState);
    showState();
}

bool TouchAction::fitsSideBySide(const Setting& setting, int width)
{
    return isSideBySide(setting) && OptionRow::neededWidth(setting) <= width - 2 * kEdge;
}

bool TouchAction::hasCaption() const
{
    return m_setting.kind() == Setting::Kind::Slider || qobject_cast<OptionRow*>(focusProxy());
}

QWidget* TouchAction::makeControl(int width)
{
    switch (m_setting.kind()) {
    case Setting::Kind::Options:
    case Setting::Kind::Choices:
        if (m_setting.kind() == Setting::Kind::Choices || fitsSideBySide(m_setting, width))
            return new OptionRow(m_setting, m_style, this);
        return makeComboBox();
    case Setting::Kind::Slider:
        return makeSlider();
    case Setting::Kind::Number:
        return makeNumber();
    case Setting::Kind::Toggle: {
        auto* const control = new ToggleSwitch(m_style, this);
        const auto show = [this, control] { control->setChecked(m_setting.isOn()); };
        connect(control, &QAbstractButton::clicked, this, [this, show] {
            m_setting.toggle();
            show(); // what the setting says, not what the switch would be by itself
        });
        connect(&m_setting, &Setting::changed, control, show);
        show();
        return control;
    }
    case Setting::Kind::Button:
        break;
    }
    auto* const button = new QPushButton(m_setting.title(), this);
    connect(button, &QPushButton::clicked, &m_setting, &Setting::press);
    return button;
}

QWidget* TouchAction::makeComboBox()
{
    auto* const box = new QComboBox(this);
    box->setMinimumWidth(kFieldWidth);
    const auto show = [this, box] {
        const QSignalBlocker blocker(box);
        if (box->count() != static_cast<int>(m_setting.options().size())) {
            box->clear();
            for (const Setting::Option& option : m_setting.options())
                box->addItem(option.text, option.value);
        }
        box->setCurrentIndex(box->findData(m_setting.value()));
    };
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this, box](int index) { m_setting.choose(box->itemData(index).toString()); });
    connect(&m_setting, &Setting::changed, box, show);
    show();
    return box;
}

QWidget* TouchAction::makeSlider()
{
    auto* const slider = new QSlider(Qt::Horizontal, this);
    slider->setFixedHeight(kRowHeight);
    const auto show = [this, slider] {
        const QSignalBlocker blocker(slider);
        slider->setRange(0, sliderPosition(m_setting, m_setting.range().maximum));
        slider->setPageStep(std::max(1, slider->maximum() / 10));
        slider->setValue(sliderPosition(m_setting, m_setting.number()));
    };
    connect(slider, &QSlider::valueChanged, this, [this](int position) {
        const Setting::Range& range = m_setting.range();
        m_setting.choose(QString::number(range.minimum + position * range.step, 'f', range.decimals));
    });
    connect(&m_setting, &Setting::changed, slider, show);
    show();
    return slider;
}

QWidget* TouchAction::makeNumber()
{
    auto* const field = new QDoubleSpinBox(this);
    field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setFixedSize(kFieldWidth, kRowHeight - 2 * kGap);
    field->setKeyboardTracking(false); // not every digit on the way to a number
    const auto show = [this, field] {
        const QSignalBlocker blocker(field);
        const Setting::Range& range = m_setting.range();
        field->setDecimals(range.decimals);
        field->setRange(range.minimum, range.maximum);
        field->setSingleStep(range.step);
        field->setWrapping(range.wraps);
        field->setSpecialValueText(range.minimumText);
        field->setSuffix(range.unit.isEmpty() ? QString() : QLatin1Char(' ') + range.unit);
        field->setValue(m_setting.number());
    };
    connect(field, qOverload<double>(&QDoubleSpinBox::valueChanged), this, [this](double number) {
        m_setting.choose(QString::number(number, 'f', m_setting.range().decimals));
    });
    connect(&m_setting, &Setting::changed, field, show);
    show();
    return field;
}

void TouchAction::showState()
{
    setEnabled(m_setting.isUsable());
    update();
}

bool TouchAction::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), m_setting.toolTip(), this);
        return true;
    }
    return QWidget::event(event);
}

void TouchAction::wheelEvent(QWheelEvent* event)
{
    const int steps = event->angleDelta().y() / QWheelEvent::DefaultDeltasPerStep;
    if (isEnabled())
        m_setting.step(steps);
    event->accept();
}

/// Keys that the control has left over. In a menu, left and right are steps, and up and down go on to it.
void TouchAction::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        m_setting.step(event->key() == Qt::Key_Right ? 1 : -1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_setting.kind() == Setting::Kind::Toggle)
            m_setting.toggle();
        else if (m_setting.kind() == Setting::Kind::Button)
            m_setting.press();
        break;
    default:
        event->ignore();
    }
}

QRect TouchAction::controlArea() const
{
    QRect area = control()->geometry();
    if (m_setting.kind() == Setting::Kind::Slider)
        area.setRight(width() - kEdge);
    return area;
}

void TouchAction::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_setting.kind() == Setting::Kind::Slider)
        paintValue(painter);
    paintVerdict(painter);
}

QRect TouchAction::figures() const
{
    if (m_setting.kind() != Setting::Kind::Slider)
        return {};
    QRect box(QPoint(), kValueBox);
    box.moveCenter({width() - kEdge - kValueBox.width() / 2, control()->geometry().center().y()});
    return box;
}

void TouchAction::paintValue(QPainter& painter) const
{
    const QRect box = figures();
    painter.setPen(m_style.colour(isEnabled() ? ColourRole::Border : ColourRole::Frame));
    painter.setBrush(m_style.colour(ColourRole::InstrumentBackground));
    painter.drawRoundedRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(
        m_style.colour(isEnabled() ? ColourRole::InstrumentText : ColourRole::InstrumentDisabledText));
    painter.drawText(box.adjusted(8, 0, -8, 0), Qt::AlignRight | Qt::AlignVCenter, m_setting.valueText());
}

/// The look of a value that waits for the instrument, and of one that it finds wrong.
void TouchAction::paintVerdict(QPainter& painter) const
{
    const ElementState::Verdict verdict = m_setting.state().verdict();
    const bool isError = verdict == ElementState::Verdict::Error;
    const bool waits = m_setting.isUnconfirmed();
    if (!m_setting.isBound() || (!waits && !isError && verdict != ElementState::Verdict::Warning))
        return;
    const QColor colour = m_style.colour(isError && !waits ? ColourRole::Error : ColourRole::Warning);
    QPen pen(colour, 2);
    pen.setCapStyle(Qt::FlatCap);
    if (waits)
        pen.setDashPattern({3.5, 2.5}); // in pen widths
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    const QRect area = controlArea().adjusted(-3, 0, 3, 0).intersected(rect());
    painter.drawRoundedRect(QRectF(area).adjusted(1, 1, -1, -1), 4, 4);
    const QString icon = !waits
        ? (isError ? QStringLiteral("status-error") : QStringLiteral("status-warning"))
        : m_setting.isOverdue() ? QStringLiteral("status-warning")
                                : QStringLiteral("waiting");
    const int top = hasCaption() ? (kCaptionHeight - kStateIcon) / 2 : (height() - kStateIcon) / 2;
    const int left = hasCaption() ? width() - kEdge - kStateIcon : area.left() - kStateIcon - 8;
    painter.drawPixmap(left, top, Icons::pixmap(Icons::path(icon), kStateIcon, colour, devicePixelRatioF()));
}
