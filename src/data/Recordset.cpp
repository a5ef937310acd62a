// SPDX-License-Identifier: MIT
#include "data/Recordset.h"

#include "data/Closing.h"
#include "data/RecordsetCore.h"
#include "data/engine/Definition.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace tol::data {

int RecordsetFields::Count() const {
    return static_cast<int>(m_core->definition().fields.size());
}

Field RecordsetFields::operator()(std::string_view name) const {
    return (*this)(m_core->definition().findField(name));
}

Field RecordsetFields::operator()(int position) const {
    return {m_core, requirePosition(position, m_core->definition().fields.size())};
}

Recordset::Recordset(std::shared_ptr<RecordsetCore> core) : m_core(std::move(core)) {}

Recordset& Recordset::operator=(Recordset&& other) noexcept {
    if (this != &other) {
        closeOrDefer(m_core);
        m_core = std::move(other.m_core);
    }
    return *this;
}

Recordset::~Recordset() {
    closeOrDefer(m_core);
}

RecordsetCore& Recordset::core() const {
    if (!m_core)
        runtime::raise(runtime::errObjectNotSet);
    return *m_core;
}

bool Recordset::isOpen() const {
    return m_core && m_core->isOpen();
}

std::string Recordset::Name() const {
    return core().definition().name;
}

std::string Recordset::FileName() const {
    return core().fileName();
}

void Recordset::Close() {
    if (!core().isOpen())
        runtime::raise(runtime::errObjectInvalid);
    core().close();
}

RecordsetFields Recordset::Fields() const {
    static_cast<void>(core());
    return RecordsetFields(m_core);
}

std::int64_t Recordset::RecordCount() const {
    return core().recordCount();
}

bool Recordset::IsEmpty() const {
    return core().isEmpty();
}

std::uint64_t Recordset::Changes() const {
    return core().changes();
}

void Recordset::CacheSize(int records) {
    core().setCacheSize(static_cast<std::size_t>(std::max(records, 1)));
}

bool Recordset::AtBOF() const {
    return core().atBOF();
}

bool Recordset::AtEOF() const {
    return core().atEOF();
}

bool Recordset::NoMatch() const {
    return core().noMatch();
}

void Recordset::Index(const std::string& name) {
    core().setIndex(name);
}

std::string Recordset::Index() const {
    return core().index();
}

void Recordset::MoveFirst() {
    core().moveFirst();
}

void Recordset::MoveLast() {
    core().moveLast();
}

void Recordset::MoveNext() {
    core().moveNext();
}

void Recordset::MovePrevious() {
    core().movePrevious();
}

std::string Recordset::Bookmark() const {
    return core().bookmark();
}

void Recordset::Bookmark(std::string_view mark) {
    core().setBookmark(mark);
}

void Recordset::Seek(std::string_view comparison, std::initializer_list<runtime::Value> keys) {
    core().seek(comparison, std::span(keys.begin(), keys.size()));
}

void Recordset::Seek(std::string_view comparison, std::span<const runtime::Value> keys) {
    core().seek(comparison, keys);
}

void Recordset::AddNew() {
    core().addNew();
}

void Recordset::Edit() {
    core().edit();
}

void Recordset::Update(int type, [[maybe_unused]] bool force) {
    if (type != dbUpdateRegular)
        runtime::raise(runtime::errInvalidArgument);
    core().update();
}

void Recordset::CancelUpdate() {
    core().cancelUpdate();
}

void Recordset::Delete() {
    core().remove();
}

std::string Recordset::LastModified() const {
    return core().lastModified();
}

} // namespace tol::data
