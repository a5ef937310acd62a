// SPDX-License-Identifier: MIT
#include "PlayedEngine.h"

#include <fstream>
#include <utility>

namespace tol::test {
namespace {

using namespace data;
using Calls = std::shared_ptr<PlayedCalls>;

class PlayedRows : public RowSource {
  public:
    PlayedRows(Calls calls, std::filesystem::path file, std::shared_ptr<const TableDefinition> table)
        : m_calls(std::move(calls)), m_file(std::move(file)), m_table(std::move(table)) {}
    ~PlayedRows() override { m_calls->calls.emplace_back("~rows"); }

    [[nodiscard]] const TableDefinition& definition() const override { return *m_table; }
    [[nodiscard]] const std::filesystem::path& file() const override { return m_file; }
    [[nodiscard]] TableState& state() override { return m_state; }
    void enter(Look) override {}
    [[nodiscard]] std::uint64_t changes() const override { return 0; }
    [[nodiscard]] RowOrder order(int) const override { return {{{}}}; }
    void choose(int, std::span<const std::size_t>) override {}
    void read(std::span<const KeyRange>, std::span<const StoredValue>, Direction, RowBatch&) override {}
    bool readRow(std::int64_t, RowBatch&) override { return false; }
    std::int64_t count(std::int64_t) override { return 0; }
    [[nodiscard]] StoredValue stored(std::size_t, const runtime::Value&, std::string&) const override {
        return {};
    }
    [[nodiscard]] runtime::Value value(std::size_t, const StoredValue&) const override {
        return runtime::Null{};
    }
    [[nodiscard]] bool keepsAsGiven(std::size_t) const override { return true; }
    std::int64_t insert(std::span<const Assignment>) override {
        m_calls->tell("insert");
        return 1;
    }
    std::optional<std::int64_t> update(std::int64_t key, std::span<const Assignment>, bool) override {
        return key;
    }
    bool remove(std::int64_t) override { return true; }

  private:
    Calls m_calls;
    std::filesystem::path m_file;
    std::shared_ptr<const TableDefinition> m_table;
    TableState m_state;
};

class PlayedStore : public Store {
  public:
    PlayedStore(std::filesystem::path file, Calls calls, const std::vector<IndexDef>& indexes)
        : m_path(std::move(file)), m_calls(std::move(calls)) {
        keep({"T", {{.name = "A", .type = dbLong, .size = reportedSize(dbLong, 0)}}, indexes});
    }
    ~PlayedStore() override { m_calls->calls.push_back("~store " + m_path.filename().string()); }

    [[nodiscard]] const std::filesystem::path& path() const override { return m_path; }
    void refresh() override { m_calls->tell("refresh"); }
    std::shared_ptr<const Catalogue> catalogue() override { return m_catalogue; }
    void alter(std::string_view, const TableChange& change, const TableUse*) override {
        m_calls->tell("alter");
        auto table = *m_catalogue->tables().front();
        apply(table, change, true);
        keep(std::move(table));
    }

    std::unique_ptr<TableUse> useTable(std::string_view) override {
        m_calls->tell("useTable");
        return std::make_unique<TableUse>(std::make_shared<TableState>(),
                                          [calls = m_calls] { calls->calls.emplace_back("~use"); });
    }
    std::unique_ptr<RowSource> openRows(std::string_view) override {
        m_calls->tell("openRows");
        return std::make_unique<PlayedRows>(m_calls, m_path, m_catalogue->tables().front());
    }

    void begin() override { m_calls->tell("begin " + m_path.filename().string()); }
    void commit() override { m_calls->tell("commit " + m_path.filename().string()); }
    void rollback() override { m_calls->tell("rollback " + m_path.filename().string()); }
    void flush() override { m_calls->tell("flush"); }
    void requireWritable() override { m_calls->tell("requireWritable"); }

  private:
    void keep(TableDefinition table) {
        auto kept = std::make_shared<const TableDefinition>(std::move(table));
        m_catalogue = std::make_shared<const Catalogue>(Catalogue::Tables{std::move(kept)});
    }

    std::filesystem::path m_path;
    Calls m_calls;
    std::shared_ptr<const Catalogue> m_catalogue;
};

} // namespace

bool PlayedEngine::recognises(std::string_view firstBytes) const {
    m_calls->tell(m_mark + " sees " + std::to_string(firstBytes.size()));
    return firstBytes.starts_with(m_mark);
}

std::shared_ptr<Store> PlayedEngine::open(const std::filesystem::path& file, bool readOnly) {
    m_calls->tell(m_mark + (readOnly ? " reads " : " opens ") + file.filename().string());
    return std::make_shared<PlayedStore>(file, m_calls, m_indexes);
}

std::shared_ptr<Store> PlayedEngine::create(const std::filesystem::path& file) {
    m_calls->tell(m_mark + " creates " + file.filename().string());
    std::ofstream(file) << m_mark;
    return std::make_shared<PlayedStore>(file, m_calls, m_indexes);
}

void PlayedEngine::compact(const std::filesystem::path& file) {
    m_calls->tell("compact " + file.filename().string());
}

} // namespace tol::test
