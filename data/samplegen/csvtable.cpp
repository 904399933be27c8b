#include "csvtable.h"

#include <QFile>
#include <QTextStream>

QStringList CsvTable::splitLine(const QString &line)
{
    QStringList cells;
    QString cell;
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (quoted) {
            if (c == QLatin1Char('"') && i + 1 < line.size() && line[i + 1] == QLatin1Char('"')) {
                cell += c;
                ++i;
            } else if (c == QLatin1Char('"')) {
                quoted = false;
            } else {
                cell += c;
            }
        } else if (c == QLatin1Char('"')) {
            quoted = true;
        } else if (c == QLatin1Char(',')) {
            cells << cell;
            cell.clear();
        } else {
            cell += c;
        }
    }
    cells << cell;
    return cells;
}

bool CsvTable::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QTextStream in(&file);
    m_header.clear();
    m_rows.clear();
    while (!in.atEnd()) {
        const QString line = in.readLine();
        if (line.trimmed().isEmpty())
            continue;
        QStringList cells = splitLine(line);
        if (m_header.isEmpty()) {
            m_header = cells;
            continue;
        }
        while (cells.size() < m_header.size())
            cells << QString();
        m_rows << cells;
    }
    return !m_header.isEmpty();
}
