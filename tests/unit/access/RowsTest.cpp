// The two chains against the documentation of the HTTP API, which lists every path with its role.
#include "access/ReadRows.h"
#include "access/WriteRows.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

QString accessName(Access access)
{
    switch (access) {
    case Access::OperatorOrHigher:
        return QStringLiteral("operator");
    case Access::ExactlyAdmin:
        return QStringLiteral("admin");
    case Access::Anyone:
        break;
    }
    return QStringLiteral("anyone");
}

QString documentText(const QString& name)
{
    QFile file(QStringLiteral(TESSARAD_DOCS "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

// The table rows below the given heading, as "path role", in their order.
QStringList documentedRows(const QString& heading)
{
    const QString text = documentText(QStringLiteral("http-api.md"));
    const QString section = text.section("\n## " + heading + '\n', 1).section("\n## ", 0, 0);
    const QRegularExpression row(QStringLiteral("^\\| `(/[^`]+)` \\| (\\w+) \\|"),
                                 QRegularExpression::MultilineOption);
    QStringList rows;
    for (auto match = row.globalMatch(section); match.hasNext();) {
        const QRegularExpressionMatch cells = match.next();
        rows.append(cells.captured(1) + ' ' + cells.captured(2));
    }
    return rows;
}

template<typename Rows>
QStringList builtRows(const Rows& rows)
{
    QStringList texts;
    for (const auto& row : rows) {
        texts.append(QString::fromLatin1(row.path) + ' ' + accessName(row.access));
    }
    return texts;
}

TEST(RowsTest, EveryReadRowIsDocumentedInItsPlace)
{
    EXPECT_EQ(builtRows(readRows()), documentedRows(QStringLiteral("Reads")));
}

TEST(RowsTest, EveryWriteRowIsDocumentedInItsPlace)
{
    EXPECT_EQ(builtRows(writeRows()), documentedRows(QStringLiteral("Writes")));
}

TEST(RowsTest, EveryRowHasARecordedExample)
{
    const QString text = documentText(QStringLiteral("http-examples.md"));
    for (const auto& row : readRows()) {
        EXPECT_TRUE(text.contains(QStringLiteral("\n## GET ") + QLatin1String(row.path)))
            << row.path;
    }
    for (const auto& row : writeRows()) {
        EXPECT_TRUE(text.contains(QStringLiteral("\n## PUT ") + QLatin1String(row.path) + '\n')
                    || text.contains(QStringLiteral("\n## POST ") + QLatin1String(row.path) + '\n'))
            << row.path;
    }
}

TEST(RowsTest, NoPathStandsTwice)
{
    for (QStringList rows : {builtRows(readRows()), builtRows(writeRows())}) {
        EXPECT_EQ(rows.removeDuplicates(), 0);
    }
}

} // namespace
} // namespace kor::veltrano::daemons
