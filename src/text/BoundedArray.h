// A fixed array whose every access is checked: an index outside it is run-time error 9.
#pragma once

#include <array>
#include <cstddef>

#include "text/RuntimeError.h"

template <typename T, std::size_t Size>
class BoundedArray {
  public:
    T& operator[](long long index) { return items_[checked(index)]; }
    const T& operator[](long long index) const { return items_[checked(index)]; }

    static constexpr std::size_t size() { return Size; }

  private:
    static std::size_t checked(long long index) {
        if (index < 0 || index >= static_cast<long long>(Size))
            throw RuntimeError(ErrorCode::SubscriptOutOfRange);
        return static_cast<std::size_t>(index);
    }

    std::array<T, Size> items_{};
};
