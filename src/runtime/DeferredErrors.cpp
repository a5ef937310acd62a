// SPDX-License-Identifier: MIT
#include "runtime/DeferredErrors.h"

#include <algorithm>
#include <list>
#include <utility>

namespace tol::runtime {
namespace {

struct OwedError {
    std::exception_ptr failure;
    std::string owner;
};
using DeferredErrors = std::list<OwedError>;

DeferredErrors& deferred() {
    static DeferredErrors list;
    return list;
}

std::exception_ptr take(DeferredErrors::iterator entry) {
    if (entry == deferred().end())
        return nullptr;
    const std::exception_ptr failure = std::move(entry->failure);
    deferred().erase(entry);
    return failure;
}

void raiseIfAny(const std::exception_ptr& failure) {
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace

void deferError(std::exception_ptr failure, std::string owner) {
    deferred().push_back({std::move(failure), std::move(owner)});
}

bool anyDeferred() {
    return !deferred().empty();
}

std::exception_ptr takeDeferred() {
    return take(deferred().begin());
}

void raiseDeferred() {
    raiseIfAny(takeDeferred());
}

void raiseDeferred(std::string_view owner) {
    raiseIfAny(take(std::ranges::find(deferred(), owner, &OwedError::owner)));
}

} // namespace tol::runtime
