#pragma once

/// The desktop that tests of the looks put the program on.
namespace quor::test {

struct Desktop {
    bool dark = false;
    int points = 10; ///< of the application's font
};

void setDesktop(const Desktop& desktop);

} // namespace quor::test
