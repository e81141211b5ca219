#include "gui/shell/Notice.h"

#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QPainter>
#include <QPushButton>

#include <utility>

namespace {

constexpr QSize kSize(360, 64);
constexpr int kPadding = 20;
constexpr int kIconSize = 24;
constexpr int kButtonWidth = 130;
constexpr int kButtonGap = 4;
/// With a button, so that the button is found under the middle of the screen.
constexpr int kWidest = 900;
/// Above the function bar.
constexpr int kAboveBottom = 120;

} // namespace

Notice::Notice(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
    , m_button(new QPushButton(this))
{
    m_button->setFont(Fonts::ofPixels(Fonts::kTitlePixels));
    m_button->setFocusPolicy(Qt::NoFocus);
    connect(m_button, &QPushButton::clicked, this, [this] {
        hide();
        if (const auto action = std::exchange(m_action, nullptr))
            action();
    });
    hide();
}

void Notice::showMessage(const QString& iconName, const QString& text, const QString& detail)
{
    m_iconName = iconName;
    m_text = text;
    m_detail = detail;
    m_action = nullptr;
    m_button->hide();
    const int words = QFontMetrics(Fonts::ofPixels(Fonts::kBodyPixels)).horizontalAdvance(text + detail);
    appear(words + 4 * kPadding + kIconSize, kShownMs);
}

void Notice::offer(const QString& iconName, const QString& text, const QString& actionText,
                   std::function<void()> action)
{
    showMessage(iconName, text, {});
    m_action = std::move(action);
    m_button->setText(actionText);
    appear(qMin(width(), kWidest) + kButtonWidth, kOfferedMs);
    m_button->setGeometry(width() - kButtonWidth - kButtonGap, kButtonGap, kButtonWidth,
                          height() - 2 * kButtonGap);
    m_button->show();
}

void Notice::appear(int words, int milliseconds)
{
    const int wide = qMin(qMax(kSize.width(), words), parentWidget()->width());
    const int left = (parentWidget()->width() - wide) / 2;
    setGeometry(left, parentWidget()->height() - kAboveBottom - kSize.height(), wide, kSize.height());
    raise();
    show();
    update();
    m_timer.start(milliseconds, this);
}

void Notice::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_style.colour(ColourRole::ToolTipBorder));
    painter.setBrush(m_style.colour(ColourRole::Raised));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.drawPixmap(kPadding, (height() - kIconSize) / 2,
                       Icons::pixmap(Icons::path(m_iconName), kIconSize, m_style.colour(ColourRole::Text),
                                     devicePixelRatioF()));
    painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels));
    painter.setPen(m_style.colour(ColourRole::SecondaryText));
    const int right = m_button->isHidden() ? kPadding : kButtonWidth + kPadding;
    const QRect room = rect().adjusted(kPadding + kIconSize + 12, 0, -right, 0);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight, m_detail);
    const int detailWidth = painter.fontMetrics().horizontalAdvance(m_detail);
    const QRect textRoom = room.adjusted(0, 0, -detailWidth - 8, 0);
    painter.setPen(m_style.colour(ColourRole::Text));
    painter.drawText(textRoom, Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(m_text, Qt::ElideRight, textRoom.width()));
}

void Notice::timerEvent(QTimerEvent*)
{
    m_timer.stop();
    hide();
}

void Notice::mousePressEvent(QMouseEvent*)
{
    hide();
}
