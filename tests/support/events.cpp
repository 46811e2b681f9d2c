#include "tests/support/events.h"

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/member.h"
#include "automation/yield.h"

namespace testing_support {

automation::EventSource::Sink event_writer(std::vector<std::string>& calls) {
  return [&calls](const automation::Event& event, std::span<const automation::Variant> arguments) {
    std::string call(event.name);
    for (const auto& argument : arguments) call += " " + automation::to_text(argument);
    calls.push_back(std::move(call));
  };
}

YieldWriter::YieldWriter(std::vector<std::string>& calls) {
  automation::set_yield_hook([&calls] { calls.push_back("yield"); });
}
YieldWriter::~YieldWriter() { automation::set_yield_hook({}); }

ImpatientHost::ImpatientHost(int32_t patience, int32_t error) {
  automation::set_yield_hook([this, patience, error] {
    if (++yields_ > patience) throw automation::RunTimeError(error, "interrupted");
  });
}
ImpatientHost::~ImpatientHost() { automation::set_yield_hook({}); }

}  // namespace testing_support
