// SPDX-License-Identifier: MIT
#include "data/FileError.h"

namespace tol::data {

runtime::RuntimeError fileError(runtime::ErrorNumber number, const std::filesystem::path& file,
                                std::string engineText) {
    std::string text = runtime::describe(number, {file.native()});
    if (text.find(file.native()) == std::string::npos)
        text += " (" + file.native() + ")";
    return {number, std::move(text), std::move(engineText)};
}

runtime::RuntimeError withRemark(const runtime::RuntimeError& error, std::string_view sentence) {
    return {error.number(), error.description() + " " + std::string(sentence), error.engineText()};
}

} // namespace tol::data
