#pragma once

#include <PickerCtl/Fields.h>

#include <QObject>

namespace PickerCtl {

/// The application's general state; StateChange tells the controls to re-apply it.
class PICKERCTL_EXPORT AppGeneralState : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    void RaiseStateChange() { Q_EMIT StateChange(); }
Q_SIGNALS:
    void StateChange();
};

/// Tells the controls that fields of an entity were added, changed or removed in the catalogue.
class PICKERCTL_EXPORT FieldUpdates : public QObject
{
    Q_OBJECT
public:
    enum Action : qint32 { Added = 1, Changed = 2, Removed = 3 };
    using QObject::QObject;
    void RaiseFieldsChange(qint32 ordEntity, const PickerCtl::FieldsPtr &flds, qint32 action)
    {
        Q_EMIT FieldsChange(ordEntity, flds, action);
    }
Q_SIGNALS:
    void FieldsChange(qint32 ordEntity, const PickerCtl::FieldsPtr &flds, qint32 action);
};

} // namespace PickerCtl
