// SPDX-License-Identifier: MIT

#include "ForeignFile.h"
#include "data/sqlite/connection/FileFormat.h"
#include "data/sqlite/definitions/CatalogueReader.h"
#include "runtime/RuntimeError.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>

namespace tol::test {

using namespace data::sqlite;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

/// Opens files that are none, or no longer whole, and sees that nothing happens to them.
class FileCheck : public testing::Test {
  protected:
    TempFolder folder;

    /// Opens the file as the engine does, reads its tables, and runs the steps.
    void open(const std::function<void(Connection&)>& steps = [](Connection&) {}) {
        Connection connection(folder / "x.db", Connection::Mode::ReadWrite);
        checkFile(connection);
        CatalogueReader(connection).tables();
        steps(connection);
    }

    runtime::RuntimeError errorOf(const std::function<void(Connection&)>& steps = [](Connection&) {}) {
        try {
            open(steps);
        } catch (const runtime::RuntimeError& error) {
            return error;
        }
        return {0, "no error"};
    }

    /// Writes the bytes, wants opening them to fail with the number and to leave them as they are.
    runtime::RuntimeError expectRefused(
        const std::string& bytes, int number,
        const std::function<void(Connection&)>& steps = [](Connection&) {}) {
        folder.write("x.db", bytes);
        const auto before = entries();
        runtime::RuntimeError error = errorOf(steps);
        EXPECT_EQ(error.number(), number) << error.description();
        EXPECT_THAT(error.description(), HasSubstr((folder / "x.db").native()));
        EXPECT_EQ(folder.read("x.db"), bytes);
        EXPECT_EQ(entries(), before);
        return error;
    }

    [[nodiscard]] std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }

    /// A database of some pages.
    std::string goodFile() {
        const ForeignFile file(folder / "good.db");
        file.run("PRAGMA page_size = 1024; CREATE TABLE t(a, b); CREATE INDEX i ON t(a);"
                 "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n WHERE x < 500)"
                 "INSERT INTO t SELECT x, hex(zeroblob(50)) FROM n");
        std::string bytes = folder.read("good.db");
        std::filesystem::remove(file.path());
        return bytes;
    }
};

void putNumber(std::string& bytes, std::size_t at, std::uint32_t number) {
    for (std::size_t i = 4; i-- > 0; number >>= 8)
        bytes.at(at + i) = static_cast<char>(number & 0xff);
}

void readAll(Connection& connection) {
    connection.number("SELECT sum(length(a) + length(b)) FROM t");
}

} // namespace

TEST_F(FileCheck, TakesAWholeFile) {
    folder.write("x.db", goodFile());
    EXPECT_NO_THROW(open(readAll));
}

TEST_F(FileCheck, RefusesAnEmptyFile) {
    expectRefused("", 3343);
}

TEST_F(FileCheck, RefusesForeignBytes) {
    expectRefused("hello", 3343);
    expectRefused(std::string(5000, '\0'), 3343);
    expectRefused(std::string("\0\1\0\0Some other data", 19) + std::string(4000, 'x'), 3343);
    std::string almost = goodFile();
    almost[15] = ' ';
    expectRefused(almost, 3343);
}

TEST_F(FileCheck, RefusesAFileThatEndsInItsHeader) {
    const std::string bytes = goodFile();
    expectRefused(bytes.substr(0, 16), 3049);
    expectRefused(bytes.substr(0, 99), 3049);
}

TEST_F(FileCheck, RefusesAHeaderThatMakesNoSense) {
    std::string bytes = goodFile();
    bytes[16] = 3;
    expectRefused(bytes, 3049);
}

TEST_F(FileCheck, RefusesATruncatedFile) {
    const std::string bytes = goodFile();
    for (const std::size_t length :
         {std::size_t{100}, std::size_t{1000}, std::size_t{1024}, bytes.size() / 2, bytes.size() - 1024})
        expectRefused(bytes.substr(0, length), 3049);
}

TEST_F(FileCheck, NoticesDamageInsideWhenItIsMet) {
    std::string bytes = goodFile();
    std::fill(bytes.begin() + 2048, bytes.end(), '\xFF');
    expectRefused(bytes, 3049, readAll);
    std::fill(bytes.begin() + 100, bytes.begin() + 1024, '\xFF');
    expectRefused(bytes, 3049);
}

TEST_F(FileCheck, RefusesALaterFormatOfOurOwn) {
    std::string bytes = goodFile();
    putNumber(bytes, 68, applicationId);
    putNumber(bytes, 60, formatVersion + 1);
    EXPECT_THAT(expectRefused(bytes, 3343).description(),
                EndsWith(" It was made by a later version of this program."));
    putNumber(bytes, 60, formatVersion);
    folder.write("x.db", bytes);
    EXPECT_NO_THROW(open());
}

TEST_F(FileCheck, LeavesTheVersionsOfOthersToThem) {
    std::string bytes = goodFile();
    putNumber(bytes, 60, 4711);
    folder.write("x.db", bytes);
    EXPECT_NO_THROW(open());
}

TEST_F(FileCheck, NamesAFileThatMayNotBeRead) {
    folder.write("x.db", goodFile());
    ASSERT_EQ(chmod((folder / "x.db").c_str(), 0), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    const uid_t user = geteuid();
    constexpr uid_t nobody = 65534; // the administrator may read everything
    if (user == 0) {
        ASSERT_EQ(seteuid(nobody), 0);
    }
    const runtime::RuntimeError error = errorOf();
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_EQ(error.number(), 3051);
    EXPECT_THAT(error.description(), HasSubstr((folder / "x.db").native()));
}

TEST_F(FileCheck, NamesAFolderInTheFilesPlace) {
    std::filesystem::create_directory(folder / "x.db");
    const runtime::RuntimeError error = errorOf();
    EXPECT_EQ(error.number(), 3051);
    EXPECT_THAT(error.description(), HasSubstr((folder / "x.db").native()));
}

} // namespace tol::test
