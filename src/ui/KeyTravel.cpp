#include "KeyTravel.h"

#include <algorithm>

namespace {

/// Pixels that an arrow scrolls, about three lines of text.
constexpr auto arrowStep = 60.0;

/// From `place` to the one that `key` leads to; neither before 0 nor behind `last`. -1 for a key that leads nowhere.
template <typename Place> Place travelled(int key, Place place, Place last, Place step, Place page)
{
    switch (key) {
    case Qt::Key_Up:
        return std::clamp(place - step, Place(0), last);
    case Qt::Key_Down:
        return std::clamp(place + step, Place(0), last);
    case Qt::Key_PageUp:
        return std::clamp(place - page, Place(0), last);
    case Qt::Key_PageDown:
        return std::clamp(place + page, Place(0), last);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return -1;
    }
}

} // namespace

int KeyTravel::row(int key, int row, int count, int rowsOnPage)
{
    return count > 0 ? travelled(key, row, count - 1, 1, std::max(rowsOnPage, 1)) : -1;
}

double KeyTravel::edge(int key, double edge, double length, double page)
{
    return travelled(key, edge, std::max(length - page, 0.0), arrowStep, page - arrowStep / 2);
}
