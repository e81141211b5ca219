#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <iosfwd>

class QCoreApplication;

/// The -Dkey=value arguments of the command line. A key may be given several times and then has several
/// values.
class MappedProgramArgs {
public:
    /// @p skipProgramName leaves out the first argument, which is the program's own name.
    MappedProgramArgs(int argc, const char* const* argv, bool skipProgramName);
    MappedProgramArgs(const QCoreApplication& application, bool skipProgramName);

    bool contains(const QString& key) const;
    /// The value given last, which overrides those before; empty when there is none.
    QString getValueForKey(const QString& key) const;
    /// All values in the order of the command line.
    QStringList getValuesForKey(const QString& key) const;
    /// Each key once, ascending.
    QStringList keys() const;

    /// Writes "key=value", one a line.
    friend std::ostream& operator<<(std::ostream& stream, const MappedProgramArgs& arguments);

private:
    void populateArgumentMap(const QStringList& arguments, bool skipProgramName);

    QMap<QString, QStringList> m_values;
};
