#include "platform/word/VerbsJson.h"

#include <utility>

namespace word {

namespace {

// A verb is a list: its place in the variant, then what it holds.

QJsonArray fieldsOf(const Open &verb) {
    return {verb.path};
}
QJsonArray fieldsOf(const Reserve &verb) {
    return {QJsonArray::fromStringList(verb.paths)};
}
QJsonArray fieldsOf(const Select &verb) {
    return {verb.bookmark};
}
QJsonArray fieldsOf(const Cells &verb) {
    QJsonArray texts;
    for (const std::optional<QString> &text : verb.texts) {
        texts.append(text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null));
    }
    return {texts};
}
QJsonArray fieldsOf(const Type &verb) {
    return {verb.text};
}
QJsonArray fieldsOf(const TypeIfAny &verb) {
    return {verb.bookmark, verb.text};
}
QJsonArray fieldsOf(const SaveOver &verb) {
    return {verb.path};
}
template <typename Bare>
QJsonArray fieldsOf(const Bare &) {
    return {};
}

void read(const QJsonArray &fields, Open &verb) {
    verb.path = fields[0].toString();
}
void read(const QJsonArray &fields, Reserve &verb) {
    for (const auto path : fields[0].toArray()) {
        verb.paths << path.toString();
    }
}
void read(const QJsonArray &fields, Select &verb) {
    verb.bookmark = fields[0].toString();
}
void read(const QJsonArray &fields, Cells &verb) {
    for (const auto text : fields[0].toArray()) {
        verb.texts << (text.isNull() ? std::nullopt : std::optional(text.toString()));
    }
}
void read(const QJsonArray &fields, Type &verb) {
    verb.text = fields[0].toString();
}
void read(const QJsonArray &fields, TypeIfAny &verb) {
    verb.bookmark = fields[0].toString();
    verb.text = fields[1].toString();
}
void read(const QJsonArray &fields, SaveOver &verb) {
    verb.path = fields[0].toString();
}
template <typename Bare>
void read(const QJsonArray &, Bare &) {}

template <size_t... Kinds>
Verb verbOf(size_t kind, const QJsonArray &fields, std::index_sequence<Kinds...>) {
    Verb verb;
    const auto readIf = [&]<size_t Kind>() {
        if (kind == Kind) {
            read(fields, verb.emplace<Kind>());
        }
    };
    (readIf.template operator()<Kinds>(), ...);
    return verb;
}

} // namespace

QJsonArray jsonOf(const Verbs &verbs) {
    QJsonArray array;
    for (const Verb &verb : verbs) {
        QJsonArray fields = std::visit([](const auto &held) { return fieldsOf(held); }, verb);
        fields.prepend(static_cast<int>(verb.index()));
        array.append(fields);
    }
    return array;
}

Verbs verbsOf(const QJsonArray &array) {
    Verbs verbs;
    for (const auto entry : array) {
        QJsonArray fields = entry.toArray();
        const int kind = fields.takeAt(0).toInt();
        verbs << verbOf(static_cast<size_t>(kind), fields,
                        std::make_index_sequence<std::variant_size_v<Verb>>());
    }
    return verbs;
}

} // namespace word
