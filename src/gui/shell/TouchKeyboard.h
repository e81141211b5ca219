#pragma once

#include <QWidget>

class QLineEdit;
class QPushButton;

/// Keys on the screen for a line of text. A finger leaves the focus where it is; by arrows or knob the focus
/// goes over the keys.
class TouchKeyboard : public QWidget {
    Q_OBJECT
public:
    enum class Keys {
        Text, ///< letters, figures and what names are written with
        Address, ///< figures and the point
        Command, ///< as Text, with what commands are written with; small letters
    };

    TouchKeyboard(Keys keys, QLineEdit* edit, QWidget* parent = nullptr);

private:
    void addRows(const QStringList& rows, int keyHeight);
    void addKey(QChar character, int row, int column, int keyHeight);
    QPushButton* makeButton(const QString& text, int keyHeight);
    void send(Qt::Key key, const QString& text);
    void shift(bool shifted);

    QLineEdit* const m_edit;
    QList<QPushButton*> m_letters;
    QPushButton* m_shift = nullptr;
    /// The first key takes the place of what stands there: by arrows or knob the focus has gone to the keys,
    /// and with it what was selected.
    bool m_isUntouched = true;
};
