#pragma once

namespace quor {

/// Shows the waiting cursor everywhere in the program for as long as it lives, for a computation
/// that the user has to wait for. It may lie within the life of another one.
class BusyCursor {
  public:
    BusyCursor();
    ~BusyCursor();
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
    BusyCursor(BusyCursor&&) = delete;
    BusyCursor& operator=(BusyCursor&&) = delete;
};

} // namespace quor
