#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

#include <memory>

/// An action that a soft button offers: what the button shows, and a signal for when it is pressed. Shared by
/// whoever registers it and the FunctionController.
class FunctionTrigger : public QObject {
    Q_OBJECT
public:
    explicit FunctionTrigger(const QString& text, const QIcon& icon, bool disableWhenLayoutLocked = false);
    explicit FunctionTrigger(const QString& text, bool disableWhenLayoutLocked = false);
    explicit FunctionTrigger(const QIcon& icon, bool disableWhenLayoutLocked = false);

    static std::shared_ptr<FunctionTrigger> makeTrigger(const QString& text, const QIcon& icon = {});

    QString getButtonText() const { return m_text; }
    QIcon getButtonIcon() const { return m_icon; }
    bool getDisableWhenLayoutLocked() const { return m_disableWhenLayoutLocked; }

    /// Small text above the label: the present value of what the button changes, say.
    QString getSuperscriptText() const { return m_superscript; }
    void setSuperscriptText(const QString& text);
    /// How many marks the button carries.
    qint32 getButtonInstances() const { return m_instances; }
    void setButtonInstances(qint32 instances);
    bool getButtonSelected() const { return m_selected; }
    void setButtonSelected(bool selected);
    bool getWordWrap() const { return m_wordWrap; }
    void setWordWrap(bool wrap);
    /// In points.
    qint32 getTextSize() const { return m_textSize; }
    void setTextSize(qint32 points);

signals:
    void triggered();
    /// What the button shows is no longer what it was.
    void changed();

private:
    template<typename T>
    void change(T& member, const T& value);

    const QString m_text;
    const QIcon m_icon;
    const bool m_disableWhenLayoutLocked;
    QString m_superscript;
    qint32 m_instances = 0;
    bool m_selected = false;
    bool m_wordWrap = true;
    qint32 m_textSize;
};
