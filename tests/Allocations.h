#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>

// A program that links this counts its allocations by `new`, in each thread.

extern thread_local int allocationsLeft;  ///< The allocation that takes this to 0 fails.
extern thread_local int allocationsMade;
extern thread_local int livingAllocations;

/// True if `operate` came through with the `failing`-th allocation failing, or was not hit by it.
template <typename State>
bool Survives(State& state, const std::function<void(State&)>& operate, int failing) {
  allocationsLeft = failing;
  try {
    operate(state);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

/// Has each allocation of `operate` on a state new from `make` fail, repeats the operation on the
/// same state, and requires that `check` then holds.
template <typename State>
void FailEachAllocation(const std::function<void(State&)>& operate,
                        const std::function<bool(State&)>& check,
                        const std::function<std::unique_ptr<State>()>& make, bool leaks = false) {
  bool hit = true;
  int failing = 0;
  for (; hit; ++failing) {  // the first round fails nothing: it makes what is made once
    const int before = livingAllocations;
    {
      const std::unique_ptr<State> state = make();
      const bool survived = Survives<State>(*state, operate, failing);
      hit = failing == 0 || allocationsLeft == 0;
      allocationsLeft = 0;
      if (!survived) {
        operate(*state);
      }
      EXPECT_TRUE(check(*state)) << "allocation " << failing;
    }
    if (failing > 0 && !leaks) {
      EXPECT_EQ(livingAllocations, before) << "allocation " << failing;
    }
  }
  EXPECT_GT(failing, 2) << "nothing was allocated";
}

template <typename State>
void FailEachAllocation(const std::function<void(State&)>& operate,
                        const std::function<bool(State&)>& check) {
  FailEachAllocation<State>(operate, check, [] { return std::make_unique<State>(); });
}
