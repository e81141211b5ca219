#pragma once

#include <QSpinBox>

#include <functional>

/// A spin box for whole numbers in a base of one's choice, of which not every one in the range need be valid:
/// an identifier in hexadecimal digits, say.
class ValidatableSpinBox : public QSpinBox {
    Q_OBJECT
public:
    using Validity = std::function<bool(int value)>;

    using QSpinBox::QSpinBox;

    /// From 2 to 36.
    int base() const { return displayIntegerBase(); }
    void setBase(int base) { setDisplayIntegerBase(base); }

    /// Which values of the range can be chosen. An empty function: all of them. The value of now stays.
    void setValidity(const Validity& isValid) { m_isValid = isValid; }

    bool isValid(int value) const { return !m_isValid || m_isValid(value); }

    /// Steps over what is not valid, and stays where no further value is.
    void stepBy(int steps) override;

protected:
    QValidator::State validate(QString& text, int& position) const override;

private:
    Validity m_isValid;
};
