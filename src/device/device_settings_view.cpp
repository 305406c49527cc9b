#include "device/device_settings_view.h"

#include "device/frmSetModus.h"
#include "device/frmSetModusEx.h"

using namespace Qt::StringLiterals;

Form* OpenDeviceSettings(const FormServices& services, const DeviceEntry& device, DevicePlace place,
                         DeviceOrigin origin, QWidget* parent, const std::function<void()>& sent) {
    const bool isTree = origin == DeviceOrigin::Tree;
    const qint32 target = isTree ? place.DeviceTag() : place.address;
    const QString address = u"Vantrel Address: "_s + place.Text();
    const auto open = [&](auto* form) {
        QObject::connect(form, &std::remove_pointer_t<decltype(form)>::SettingsSent, parent, sent);
        form->ShowModal();
        return form;
    };
    if (IsFrom(device, ExtendedSettingsFrom)) {
        const QString caption = isTree ? u"Set Device Parameter - "_s + address : QString();
        return open(new frmSetModusEx(services, device, target, caption, parent));
    }
    const QString caption = isTree ? address : u"Local IR Transceiver: "_s + QString::number(place.address);
    auto* form = new frmSetModus(services, device, origin, target, caption, parent);
    const QString what = (KindName(device) + u' ' + FirmwareText(device)).trimmed();
    form->setWindowTitle(form->windowTitle() + u" - "_s + what);
    return open(form);
}
