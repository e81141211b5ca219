#pragma once

#include <QString>

#include <functional>
#include <optional>

class Setting;

/// A number that is typed: what it may be, and how its text is read. Knows no widget. A value.
struct NumberEntry {
    QString title;
    double value = 0;
    double minimum = 0;
    double maximum = 100;
    double step = 1;
    int decimals = 0;
    QString unit = {};
    QString minimumText = {}; ///< stands for the minimum where that is no quantity
    int base = 10; ///< of whole numbers
    std::function<bool(double)> isValid = {}; ///< which of the range can be chosen; empty: all

    /// What was read: a number that can be chosen, or in words why it cannot be.
    struct Reading {
        std::optional<double> number;
        QString problem;
    };

    static NumberEntry of(const Setting& setting);

    /// Takes the unit and a prefix before it: "1.5 k", "250 mUI". Any of comma and point separates decimals.
    Reading read(const QString& text) const;
    /// Without the unit.
    QString textOf(double number) const;
    QString textWithUnit(double number) const;
    /// "0.01 to 10.0 UI, now 0.20 UI".
    QString rangeText() const;
    /// Whether the unit takes prefixes: "Hz" does, "%" and "dB" do not.
    bool takesPrefixes() const;

    /// The text with the other sign.
    static QString withOtherSign(const QString& text);
    /// The text with that prefix, or without it when it has it.
    static QString withPrefix(const QString& text, QChar prefix);
    /// The characters that belong to such a number: digits of its base, the point.
    QString characters() const;

private:
    std::optional<double> parse(QString text) const;
};
