// SPDX-License-Identifier: MIT
#include "PlayedEngine.h"

#include "data/Names.h"

#include <fstream>
#include <utility>

namespace tol::test {
namespace {

using namespace data;
using Calls = std::shared_ptr<PlayedCalls>;

class PlayedCursor : public Cursor {
  public:
    explicit PlayedCursor(Calls calls) : m_calls(std::move(calls)) {}
    ~PlayedCursor() override { m_calls->calls.emplace_back("~cursor"); }

    void setIndex(const std::string& name) override { m_calls->tell("setIndex " + name); }
    bool first() override { return false; }
    bool last() override { return false; }
    bool next() override { return false; }
    bool previous() override { return false; }
    bool seek(SeekOperator, std::span<const runtime::Value>) override { return false; }
    bool seekBookmark(std::string_view) override { return false; }
    [[nodiscard]] std::string bookmark() const override { return "1"; }
    runtime::Value value(std::size_t) override { return runtime::Null{}; }
    std::string insert(std::span<const Assignment>) override {
        m_calls->tell("insert");
        return "1";
    }
    void update(std::span<const Assignment>) override {}
    void remove() override {}
    std::int64_t count() override { return 0; }
    bool isEmpty() override { return true; }

  private:
    Calls m_calls;
};

class PlayedUse : public TableUse {
  public:
    explicit PlayedUse(Calls calls) : m_calls(std::move(calls)) {}
    ~PlayedUse() override { m_calls->calls.emplace_back("~use"); }

  private:
    Calls m_calls;
};

class PlayedStore : public Store {
  public:
    PlayedStore(std::filesystem::path file, Calls calls, const std::vector<IndexDef>& indexes)
        : m_path(std::move(file)), m_calls(std::move(calls)) {
        auto table = std::make_shared<TableDefinition>();
        table->name = "T";
        table->fields.emplace_back();
        table->fields.back().name = "A";
        table->fields.back().type = dbLong;
        table->fields.back().size = reportedSize(dbLong, 0);
        table->indexes = indexes;
        m_table = std::move(table);
    }
    ~PlayedStore() override { m_calls->calls.push_back("~store " + m_path.filename().string()); }

    [[nodiscard]] const std::filesystem::path& path() const override { return m_path; }
    void refresh() override { m_calls->tell("refresh"); }
    std::vector<std::string> tableNames() override {
        m_calls->tell("tableNames");
        return {"T"};
    }
    std::shared_ptr<const TableDefinition> definition(std::string_view table) override {
        m_calls->tell("definition");
        return sameName(table, "T") ? m_table : nullptr;
    }

    void createTable(const TableDefinition&) override { m_calls->tell("createTable"); }
    void dropTable(std::string_view) override { m_calls->tell("dropTable"); }
    void renameTable(std::string_view, const std::string&) override {}
    void addField(std::string_view, const FieldDef&) override { m_calls->tell("addField"); }
    void dropField(std::string_view, std::string_view) override {}
    void renameField(std::string_view, std::string_view, const std::string&) override {}
    void createIndex(std::string_view, const IndexDef&) override {}
    void dropIndex(std::string_view, std::string_view) override {}
    void setOrdinal(std::string_view, std::string_view, int, const TableUse*) override {
        m_calls->tell("setOrdinal");
    }
    void setAllowZeroLength(std::string_view, std::string_view, bool, const TableUse*) override {
        m_calls->tell("setAllowZeroLength");
    }

    std::unique_ptr<TableUse> useTable(std::string_view) override {
        m_calls->tell("useTable");
        return std::make_unique<PlayedUse>(m_calls);
    }
    std::unique_ptr<Cursor> openCursor(std::string_view) override {
        m_calls->tell("openCursor");
        return std::make_unique<PlayedCursor>(m_calls);
    }

    void begin() override { m_calls->tell("begin " + m_path.filename().string()); }
    void commit() override { m_calls->tell("commit " + m_path.filename().string()); }
    void rollback() override { m_calls->tell("rollback " + m_path.filename().string()); }
    void settle() override { m_calls->tell("settle"); }
    void requireWritable() override { m_calls->tell("requireWritable"); }

  private:
    std::filesystem::path m_path;
    Calls m_calls;
    std::shared_ptr<const TableDefinition> m_table;
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
