#pragma once

namespace MXF::Tessel::Tool {

/// Calls an action for each key that is in one of two ordered maps or in both, in key order.
/// @param action  takes the key and pointers to the two values, null where there is none.
template <class Map, class Action>
void forEachInEither(const Map& before, const Map& after, const Action& action) {
  auto old = before.begin();
  auto now = after.begin();
  while (old != before.end() || now != after.end()) {
    const bool hasOld = now == after.end() || (old != before.end() && !(now->first < old->first));
    const bool hasNew = old == before.end() || (now != after.end() && !(old->first < now->first));
    action(hasOld ? old->first : now->first, hasOld ? &old->second : nullptr, hasNew ? &now->second : nullptr);
    if (hasOld) ++old;
    if (hasNew) ++now;
  }
}

}  // namespace MXF::Tessel::Tool
