// SPDX-License-Identifier: MIT
// A reference to something callable: what the walkers of geometry report their points to.
//
// It owns nothing and is as cheap as a function pointer; what it refers to must outlive the call that it is passed to.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace kelu {

template <class Signature>
class FunctionRef;

template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
public:
    /// Refers to a function object, most often a lambda.
    template <class Callable>
    requires(!std::is_same_v<Callable, FunctionRef>) FunctionRef(const Callable& callable)
        : object_(std::addressof(callable)), call_([](const void* object, Arguments... arguments) -> Result {
              return (*static_cast<const Callable*>(object))(std::forward<Arguments>(arguments)...);
          })
    {}

    Result operator()(Arguments... arguments) const { return call_(object_, std::forward<Arguments>(arguments)...); }

private:
    const void* object_;
    Result (*call_)(const void*, Arguments...);
};

/// What takes the points of a line, a circle or a selection: x, y in frame pixels.
using PointVisit = FunctionRef<void(int x, int y)>;
/// What takes a horizontal run of pixels, both ends included.
using SpanVisit = FunctionRef<void(int left, int right, int y)>;

} // namespace kelu
