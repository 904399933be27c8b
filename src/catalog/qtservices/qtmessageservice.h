#pragma once

#include <PickerCtl/MessageService.h>

namespace PickerCtl {

/// The message box of a Qt widget host, over the active window.
class QtMessageService final : public MessageService
{
public:
    qint32 ShowMessage(const QString &text, qint32 style, const QString &title,
                       qint32 helpContext = 0, qint32 reserved = 0) override;
};

} // namespace PickerCtl
