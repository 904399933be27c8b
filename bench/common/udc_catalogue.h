#pragma once

// An SQLite catalogue of user-defined calculations to delete, the same for the store's own
// deletion benchmark and the field browser's.

#include <PickerCtl/SqlCatalog.h>

#include <QString>

namespace PickerCtl::Bench {

inline const QString UdcApp = QStringLiteral("Reports");
inline const UserSpec UdcAdmin{1, QStringLiteral("admin"), true, true, false};

/// Category `index` of writeUdcCatalogue's catalogue: "C0", "C1", ...
inline QString udcCategory(qint32 index)
{
    return QStringLiteral("C%1").arg(index);
}

/// Writes to `path` the application UdcApp whose root holds `categories` categories (keys and
/// names udcCategory(0), ...) and `fields` UDCs of UdcAdmin, ids from 1, named "UDC <id>", dealt
/// round the categories.
inline void writeUdcCatalogue(const QString &path, qint32 fields, qint32 categories)
{
    SqlCatalogBuilder b(path);
    b.addUser(UdcAdmin);
    b.addFieldType(QStringLiteral("UDC"), QStringLiteral("User-Defined Calculation"));
    b.addApplication(UdcApp);
    CategorySpec root;
    root.key = QStringLiteral("ROOT");
    root.name = UdcApp;
    b.addCategory(root);
    for (qint32 c = 0; c < categories; ++c) {
        CategorySpec category;
        category.key = udcCategory(c);
        category.parentKey = root.key;
        category.name = category.key;
        b.addCategory(category);
    }
    for (qint32 id = 1; id <= fields; ++id) {
        FieldSpec field;
        field.id = id;
        field.categoryKey = udcCategory(id % categories);
        field.name = QStringLiteral("UDC %1").arg(id);
        field.typeCode = QStringLiteral("UDC");
        field.ownerId = UdcAdmin.id;
        field.techMask = QStringLiteral("L");
        b.addField(field);
    }
    b.commit();
}

} // namespace PickerCtl::Bench
