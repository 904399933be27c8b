#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A comma-separated table with a header row; fields may be quoted with '"' ("" inside quotes is one quote).
class CsvTable
{
public:
    /// Reads the file (a path or a resource); false when it cannot be read or has no header row.
    bool load(const QString &path);

    /// The rows after the header, each as long as the header (missing cells are empty).
    const QList<QStringList> &rows() const { return m_rows; }
    /// Position of the named header column, or -1.
    qsizetype column(const QString &name) const { return m_header.indexOf(name); }

    static QStringList splitLine(const QString &line);

private:
    QStringList m_header;
    QList<QStringList> m_rows;
};
