#pragma once

#include <QWidget>

class QPushButton;
class WzCustomStyle;

/// Asks once before something is destroyed, and names what is lost. The safe answer has the focus; Escape and
/// the back arrow give it, too. It deletes itself when it is answered.
class ConfirmationStrip : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 152;

    /// @p destroy: the word of the button that does it.
    ConfirmationStrip(const WzCustomStyle& style, const QString& question, const QString& loss,
                      const QString& destroy, const QString& iconName, QWidget* parent);
    ~ConfirmationStrip() override;

    /// Shows it, and gives it the focus and the function bar.
    void ask();

signals:
    void confirmed();
    void kept();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void customEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void answer(bool isConfirmed);

    const WzCustomStyle& m_style;
    const QString m_question;
    const QString m_loss;
    const QString m_iconName;
    QPushButton* m_keep;
    QPushButton* m_destroy;
    bool m_isAnswered = false;
};
