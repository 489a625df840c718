// The door of the module for the help.

#include "guidance/HelpService.h"
#include "guidance/LateHelp.h"

namespace quor {

namespace {

constexpr HelpModule module{.version = QUOR_VERSION, .make = []() -> std::unique_ptr<HelpOpener> {
                                return std::make_unique<HelpService>();
                            }};

} // namespace

extern "C" Q_DECL_EXPORT const HelpModule* quorHelp() {
    return &module;
}

} // namespace quor
