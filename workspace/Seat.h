// A place in the running program for what is there only while a window lives.
#pragma once

namespace velmora {

/// Whoever has taken the seat, else a `Part` made by default, which does nothing: nobody who calls needs to ask whether
/// somebody is there. Who takes the seat leaves it before its own end.
template <typename Part> class Seat {
public:
    Seat() = default;
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;

    Part* operator->() const { return taker_; }
    Part& operator*() const { return *taker_; }

    void Take(Part& taker) { taker_ = &taker; }
    void Leave() { taker_ = &nobody_; }

private:
    Part nobody_{};
    Part* taker_ = &nobody_;
};

} // namespace velmora
