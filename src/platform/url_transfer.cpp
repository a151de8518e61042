#include "platform/url_transfer.h"
#include "runtime/runtime_error.h"

namespace tsl {

void UrlTransfer::fail(const QString& description) {
    raiseStateChanged(icError);
    raise(ErrDeviceUnavailable, description);
}

} // namespace tsl
