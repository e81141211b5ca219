#include "gui/control/FunctionBar.h"

#include "gui/control/FunctionButton.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int kShadow = 10;
/// With half of the gap beside it.
constexpr int kLogoWidth = 90;
constexpr int kLogoSize = 48;
constexpr int kBackSize = 32;

} // namespace

FunctionBar::FunctionBar(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
    , m_velmoraButton(new FunctionButton(style, this))
{
    setFixedHeight(kShadow + kHeight);
    m_velmoraButton->installEventFilter(this);
    connect(m_velmoraButton, &QAbstractButton::clicked, this, &FunctionBar::velmoraButtonPressed);
    for (quint32 i = 0; i < kButtons; ++i) {
        m_buttons[i] = new FunctionButton(style, this);
        m_buttons[i]->installEventFilter(this);
        connect(m_buttons[i], &QAbstractButton::clicked, this, [this, i] { emit buttonPressed(i); });
    }
    connect(&style, &WzCustomStyle::subWindowSettingsaUpdated, this, QOverload<>::of(&QWidget::update));
    toggleVelmoraButtonAsBackArrow(false);
}

FunctionButton* FunctionBar::button(quint32 index) const
{
    return index < kButtons ? m_buttons[index] : nullptr;
}

void FunctionBar::setUpFunctionButton(quint32 index, const QString& text, const QIcon& icon)
{
    if (FunctionButton* const target = button(index))
        target->setFace(text, icon);
}

void FunctionBar::setSuperscriptText(quint32 index, const QString& text)
{
    if (FunctionButton* const target = button(index))
        target->setSuperscript(text);
}

void FunctionBar::setWordWrap(quint32 index, bool wrap)
{
    if (FunctionButton* const target = button(index))
        target->setWordWrap(wrap);
}

void FunctionBar::setPointSize(quint32 index, int points)
{
    if (FunctionButton* const target = button(index))
        target->setPointSize(points);
}

void FunctionBar::setButtonEnabled(quint32 index, bool enabled)
{
    if (FunctionButton* const target = button(index))
        target->setEnabled(enabled);
}

void FunctionBar::setButtonSelected(quint32 index, bool selected)
{
    if (FunctionButton* const target = button(index))
        target->setSelected(selected);
}

void FunctionBar::setIndicatorNumIcons(quint32 index, int count, bool keepRoom)
{
    if (FunctionButton* const target = button(index))
        target->setMarks(count, keepRoom);
}

void FunctionBar::clearFunctionButton(quint32 index)
{
    setUpFunctionButton(index, {}, {});
    setSuperscriptText(index, {});
    setButtonEnabled(index, true);
    setButtonSelected(index, false);
    setIndicatorNumIcons(index, 0, false);
}

void FunctionBar::clearFunctionBar()
{
    for (quint32 i = 0; i < kButtons; ++i)
        clearFunctionButton(i);
}

void FunctionBar::toggleVelmoraButtonAsBackArrow(bool backArrow)
{
    const int size = backArrow ? kBackSize : kLogoSize;
    const QString name = backArrow ? QStringLiteral("back") : QStringLiteral("logo");
    m_velmoraButton->setIconSize({size, size});
    m_velmoraButton->setFace({},
                             Icons::icon(Icons::path(name), size, m_style.colour(ColourRole::Text),
                                         m_style.colour(ColourRole::DisabledText)));
    m_velmoraButton->setToolTip(backArrow ? tr("Back") : tr("Main menu"));
    m_velmoraButton->setAccessibleName(m_velmoraButton->toolTip());
}

void FunctionBar::flash(quint32 index)
{
    if (FunctionButton* const target = button(index))
        target->flash();
}

void FunctionBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient shadow(0, kShadow, 0, 0);
    shadow.setColorAt(0, QColor(0, 0, 0, 160));
    shadow.setColorAt(1, QColor(0, 0, 0, 0));
    painter.fillRect(0, 0, width(), kShadow, shadow);
    painter.fillRect(0, kShadow, width(), kHeight, m_style.colour(ColourRole::Background));
    painter.fillRect(0, kShadow, width(), 1, m_style.colour(ColourRole::Pressed));
}

void FunctionBar::resizeEvent(QResizeEvent*)
{
    m_velmoraButton->setGeometry(0, kShadow, kLogoWidth, kHeight);
    const int room = width() - kLogoWidth;
    const auto left = [room](quint32 index) {
        return kLogoWidth + room * static_cast<int>(index) / static_cast<int>(kButtons);
    };
    for (quint32 i = 0; i < kButtons; ++i)
        m_buttons[i]->setGeometry(left(i), kShadow, left(i + 1) - left(i), kHeight);
}

void FunctionBar::mousePressEvent(QMouseEvent* event)
{
    // Nothing below is meant.
    event->accept();
    emit used();
}

bool FunctionBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        emit used();
    return QWidget::eventFilter(watched, event);
}
