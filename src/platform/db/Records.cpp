#include "platform/db/Records.h"

#include "platform/db/DbError.h"

const Value &Record::operator[](QStringView field) const {
    return m_records->at(m_row, m_records->field(field));
}

const Value &Record::at(int field) const {
    return m_records->at(m_row, field);
}

int Records::field(QStringView name) const {
    for (int i = 0; i < m_fields.size(); ++i) {
        if (name.compare(m_fields[i], Qt::CaseInsensitive) == 0) {
            return i;
        }
    }
    throw DbError(DbError::Kind::Structure, m_file,
                  QStringLiteral("le champ « %1 » manque").arg(name.toString()));
}
