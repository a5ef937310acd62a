// SPDX-License-Identifier: MIT
#include "data/engine/FileError.h"

namespace tol::data {

runtime::RuntimeError fileError(runtime::ErrorNumber number, const std::filesystem::path& file,
                                std::string engineText) {
    return aboutFile({number, runtime::describe(number, {file.native()}), std::move(engineText)}, file);
}

runtime::RuntimeError aboutFile(const runtime::RuntimeError& error, const std::filesystem::path& file) {
    if (error.description().find(file.native()) != std::string::npos)
        return error;
    return {error.number(), error.description() + " (" + file.native() + ")", error.engineText()};
}

runtime::RuntimeError withRemark(const runtime::RuntimeError& error, std::string_view sentence) {
    return {error.number(), error.description() + " " + std::string(sentence), error.engineText()};
}

runtime::RuntimeError atPlace(std::string_view place, const runtime::RuntimeError& error) {
    return {error.number(), std::string(place) + ": " + error.description(), error.engineText()};
}

} // namespace tol::data
