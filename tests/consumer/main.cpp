// A minimal host: opens an SQL catalogue, hands it to the controls and places a field browser and a
// filter editor made by the class factory on a form. Exits 0 when every step worked.
#include <PickerCtl/ControlFactory.h>
#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/XFieldPicker.h>

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("catalog.sqlite"));
    {
        PickerCtl::SqlCatalogBuilder builder(path);
        builder.addApplication(QStringLiteral("Consumer"));
        builder.commit();
    }
    PickerCtl::FieldCatalog::setInstance(PickerCtl::SqlCatalog::open(path));

    QWidget form;
    auto *layout = new QVBoxLayout(&form);
    auto *picker = new PickerCtl::XFieldPicker(&form);
    layout->addWidget(picker);
    QWidget *filter = PickerCtl::ControlFactory::create(QStringLiteral("XStringFilter"), &form);
    if (!filter) {
        std::fputs("the class factory made no XStringFilter\n", stderr);
        return 1;
    }
    layout->addWidget(filter);
    picker->InitProperties();
    const bool loaded = picker->Load(QStringLiteral("Consumer"), QString());
    std::printf("root \"%s\", Load %s, %d control(s) alive\n", qPrintable(picker->RootLabel()),
                loaded ? "succeeded" : "failed", PickerCtl::ControlFactory::liveCount());
    return loaded ? 0 : 1;
}
