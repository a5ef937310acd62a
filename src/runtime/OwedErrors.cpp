// SPDX-License-Identifier: MIT
#include "runtime/OwedErrors.h"

#include <algorithm>
#include <list>
#include <utility>

namespace tol::runtime {
namespace {

struct OwedError {
    std::exception_ptr failure;
    std::string owner;
};
using OwedErrors = std::list<OwedError>;

OwedErrors& owed() {
    static OwedErrors list;
    return list;
}

std::exception_ptr take(OwedErrors::iterator entry) {
    if (entry == owed().end())
        return nullptr;
    const std::exception_ptr failure = std::move(entry->failure);
    owed().erase(entry);
    return failure;
}

void raiseIfAny(const std::exception_ptr& failure) {
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace

void owe(std::exception_ptr failure, std::string owner) {
    owed().push_back({std::move(failure), std::move(owner)});
}

bool anyOwed() {
    return !owed().empty();
}

std::exception_ptr takeOwed() {
    return take(owed().begin());
}

void raiseOwed() {
    raiseIfAny(takeOwed());
}

void raiseOwed(std::string_view owner) {
    raiseIfAny(take(std::ranges::find(owed(), owner, &OwedError::owner)));
}

} // namespace tol::runtime
