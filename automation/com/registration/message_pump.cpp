#include "automation/com/registration/message_pump.h"

#include "automation/com/system/platform.h"
#include "automation/yield.h"

namespace automation::com {
namespace {

void pump_messages() {
  // The look that costs nothing when nothing is there.
  if (HIWORD(GetQueueStatus(QS_ALLINPUT)) == 0) return;
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // The host's own loop ends the program, after this call.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

void install_message_pump() {
  [[maybe_unused]] static const bool installed = [] {
    set_yield_hook(&pump_messages);
    return true;
  }();
}

}  // namespace automation::com
