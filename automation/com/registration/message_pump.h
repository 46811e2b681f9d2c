#pragma once

namespace automation::com {

/// Makes long loops deliver the messages that wait for the calling thread, so that the host's windows stay alive. Does
/// nothing after the first time.
void install_message_pump();

}  // namespace automation::com
