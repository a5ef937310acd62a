// SPDX-License-Identifier: MIT
#include "data/Index.h"

#include "data/Positions.h"

namespace tol::data {

const std::string& Index::FieldList::operator()(int position) const {
    return m_names[requirePosition(position, m_names.size())];
}

Field Index::CreateField(const std::string& name) const {
    FieldDef definition;
    definition.name = name;
    return Field(definition);
}

} // namespace tol::data
