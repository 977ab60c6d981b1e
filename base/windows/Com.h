// Objects of the system that are counted by those who hold them.
#pragma once

#include "base/windows/Api.h"

#include <objbase.h>
#include <unknwn.h>
#undef interface

#include <utility>

namespace velmora {

/// Holds one object, or none.
template <typename T> class Com {
public:
    Com() = default;
    Com(Com&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Com& operator=(Com&&) = delete;
    ~Com() { Reset(); }

    void Reset() {
        if (T* const object = std::exchange(object_, nullptr))
            object->Release();
    }
    T* Get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// What a call is given that hands out an object; what was held before is let go.
    T** Out() {
        Reset();
        return &object_;
    }
    /// For a call that does not know the object's type.
    template <typename Any> Any** OutAs() { return reinterpret_cast<Any**>(Out()); }

private:
    T* object_ = nullptr;
};

} // namespace velmora
