// The catalogue page: what the gallery opened, so the other pages' contents can be checked against it.
#include "gallerypages.h"

#include <PickerCtl/FieldCategory.h>
#include <PickerCtl/SqlCatalog.h>

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const auto SourceTitle = QStringLiteral("Catalogue");
const auto SourceLabel = QStringLiteral("Source:");
const auto CurrentAppLabel = QStringLiteral("Shown application:");
const auto ApplicationsTitle = QStringLiteral("Applications");
const auto ApplicationColumn = QStringLiteral("Application");
const auto CategoriesColumn = QStringLiteral("Categories");
const auto BusyHourColumn = QStringLiteral("Busy hour");
const auto TotalColumn = QStringLiteral("All fields");
const auto TechnologiesTitle = QStringLiteral("Technology types");
const QStringList TechnologyColumns = {QStringLiteral("Name"), QStringLiteral("Code"), QStringLiteral("Bit")};
const auto UsersTitle = QStringLiteral("Users");
const QStringList UserColumns = {QStringLiteral("Id"), QStringLiteral("Name"), QStringLiteral("Rights")};
const auto Administrator = QStringLiteral("administrator");
const auto ReadOnly = QStringLiteral("read only");
const auto MayModify = QStringLiteral("may modify fields");
const auto MayNotModify = QStringLiteral("may not modify fields");
const auto RightsSeparator = QStringLiteral(", ");

QTreeWidget *makeTable(const QString &objectName, const QStringList &columns)
{
    auto *table = new QTreeWidget;
    table->setObjectName(objectName);
    table->setRootIsDecorated(false);
    table->setAlternatingRowColors(true);
    table->setHeaderLabels(columns);
    table->header()->setStretchLastSection(true);
    return table;
}

QGroupBox *framed(const QString &objectName, const QString &title, QWidget *content)
{
    auto *box = new QGroupBox(title);
    box->setObjectName(objectName);
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(content);
    return box;
}

void fitColumns(QTreeWidget *table)
{
    for (int column = 0; column < table->columnCount(); ++column)
        table->resizeColumnToContents(column);
}

// One row per application: categories, then fields per field type in the catalogue's type order.
QTreeWidget *applicationsTable(PickerCtl::FieldCatalog &catalog, const QString &shownApp)
{
    const QStringList apps = catalog.Applications();
    QStringList typeNames;
    for (const QString &app : apps) {
        const QStringList entries = catalog.FieldTypeComboEntries(app).mid(1);
        for (const QString &name : entries) {
            if (!typeNames.contains(name))
                typeNames << name;
        }
    }

    auto *table = makeTable(QStringLiteral("tvwApplications"),
                            QStringList{ApplicationColumn, CategoriesColumn} + typeNames
                                + QStringList{BusyHourColumn, TotalColumn});
    for (const QString &app : apps) {
        QHash<QString, int> perType;
        int busyHour = 0;
        const auto fields = catalog.GetCategoryTree(app)->AllFields(0);
        for (const auto &field : *fields) {
            ++perType[field->FieldTypeCode()];
            busyHour += field->UseForBusyHour() ? 1 : 0;
        }
        QStringList row{app, QString::number(catalog.Categories(app).size())};
        for (const QString &typeName : typeNames)
            row << QString::number(perType.value(catalog.FieldTypeCode(app, typeName)));
        row << QString::number(busyHour) << QString::number(fields->Count());

        auto *item = new QTreeWidgetItem(table, row);
        for (int column = 1; column < row.size(); ++column)
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        if (app == shownApp) {
            QFont bold = item->font(0);
            bold.setBold(true);
            for (int column = 0; column < row.size(); ++column)
                item->setFont(column, bold);
        }
    }
    fitColumns(table);
    // Only a handful of applications: the table takes the height of its rows, not of the page.
    table->header()->setStretchLastSection(false);
    const int rows = qMax(1, table->topLevelItemCount());
    table->setFixedHeight(table->header()->sizeHint().height() + rows * table->sizeHintForRow(0)
                          + 2 * table->frameWidth() + 4);
    return table;
}

QTreeWidget *technologiesTable(PickerCtl::FieldCatalog &catalog)
{
    auto *table = makeTable(QStringLiteral("tvwTechnologies"), TechnologyColumns);
    for (const auto &type : *catalog.GetTechnologyTypes())
        new QTreeWidgetItem(table, {type->Name(), type->Code(), QString::number(type->Bit())});
    fitColumns(table);
    return table;
}

QString rights(const PickerCtl::CurrentUser &user)
{
    QStringList parts;
    if (user.IsAdministrator())
        parts << Administrator;
    if (user.IsReadOnly())
        parts << ReadOnly;
    else
        parts << (user.CanModifyFields() ? MayModify : MayNotModify);
    return parts.join(RightsSeparator);
}

QTreeWidget *usersTable(PickerCtl::FieldCatalog &catalog)
{
    auto *table = makeTable(QStringLiteral("tvwUsers"), UserColumns);
    for (const auto &user : catalog.Users())
        new QTreeWidgetItem(table, {QString::number(user->UserId()), user->Name(), rights(*user)});
    fitColumns(table);
    return table;
}

} // namespace

QWidget *makeCatalogPage(const GalleryContext &context)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);

    auto *source = new QWidget;
    auto *form = new QFormLayout(source);
    form->setContentsMargins(0, 0, 0, 0);
    auto *lblSource = new QLabel(PickerCtl::maskedLocation(context.sourcePath));
    lblSource->setObjectName(QStringLiteral("lblSource"));
    lblSource->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblSource->setWordWrap(true);
    auto *lblApplication = new QLabel(context.appName);
    lblApplication->setObjectName(QStringLiteral("lblApplication"));
    form->addRow(SourceLabel, lblSource);
    form->addRow(CurrentAppLabel, lblApplication);
    layout->addWidget(framed(QStringLiteral("fraSource"), SourceTitle, source));

    layout->addWidget(framed(QStringLiteral("fraApplications"), ApplicationsTitle,
                             applicationsTable(*context.catalog, context.appName)));

    auto *lower = new QHBoxLayout;
    lower->addWidget(framed(QStringLiteral("fraTechnologies"), TechnologiesTitle,
                            technologiesTable(*context.catalog)), 2);
    lower->addWidget(framed(QStringLiteral("fraUsers"), UsersTitle, usersTable(*context.catalog)), 3);
    layout->addLayout(lower, 1);
    return page;
}
