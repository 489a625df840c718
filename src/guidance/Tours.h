#pragma once

#include "toolkit/Frame.h"

#include <cstdint>
#include <optional>
#include <span>

/// The guided tours as tables.
namespace quor {

enum class Tour : std::uint8_t { newBiorhythm = 1, system = 2 };

struct TourStep {
    const char16_t* text;
    /// The command whose toolbar picture is shown above the text.
    std::optional<Command> picture = std::nullopt;
    TourLock lock = {};
    /// What the button "NEXT >>" opens before the next step comes. The dialog for a new biorhythm
    /// has to be filled in first.
    std::optional<Command> opens = std::nullopt;
    /// The tour is over when the system is closed during this step.
    bool needsSystem = false;
};

/// The steps in order, the last of which ends the tour. A number other than those of the tours has
/// no steps.
[[nodiscard]] std::span<const TourStep> tourSteps(std::uint8_t number);

} // namespace quor
