#include "platform/db/TableDef.h"

#include "platform/db/Engine.h"

bool TableDef::isUpdatable() const {
    return m_engine->isUpdatable(m_name);
}

bool TableDef::isKey(const QString &field) const {
    return m_engine->isKey(m_name, field);
}

bool TableDef::hasField(const QString &field) const {
    return m_engine->fieldNames(m_name).contains(field, Qt::CaseInsensitive);
}

void TableDef::appendField(const FieldDef &field) {
    m_engine->appendField(m_name, field);
}

void TableDef::deleteField(const QString &field) {
    m_engine->deleteField(m_name, field);
}

bool TableDef::hasIndex(const QString &index) const {
    return m_engine->hasIndex(index);
}

void TableDef::createIndex(const IndexDef &index) {
    m_engine->createIndex(m_name, index);
}

bool TableDef::hasExclusion(const QString &exclusion) const {
    return m_engine->hasExclusion(exclusion);
}

std::vector<qint64> TableDef::createExclusion(const ExclusionDef &exclusion) {
    return m_engine->createExclusion(m_name, exclusion);
}

bool TableDef::hasNotice(const QString &notice) const {
    return m_engine->hasNotice(notice);
}

void TableDef::createNotice(const NoticeDef &notice) {
    m_engine->createNotice(m_name, notice);
}
