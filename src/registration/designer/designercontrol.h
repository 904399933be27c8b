#pragma once

#include <PickerCtl/ControlFactory.h>

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace PickerCtl::Designer {

/// Offers one control of the class factory to Qt Designer; everything it says comes from the
/// factory's description of the class.
class DesignerControl : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    DesignerControl(const ControlDescription &description, QObject *parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface *core) override;
    QString domXml() const override;

private:
    ControlDescription m_description;
    bool m_initialized = false;
};

} // namespace PickerCtl::Designer
