#include "message.hpp"

#include "oruAsf.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace orusim {
namespace {

constexpr uint32_t kKind16 = 2u << 16;
constexpr uint32_t kKind32 = 3u << 16;
constexpr uint32_t kKindText = 8;
constexpr uint32_t kKindAddress = 12u << 16;

uint32_t kindOf(uint32_t type)
{
    return type >> 16;
}

/// Bytes of the value of a number, 0 of another kind.
uint32_t widthOf(uint32_t type)
{
    constexpr uint32_t kWidths[] = {0, 1, 2, 4};
    return kindOf(type) < std::size(kWidths) ? kWidths[kindOf(type)] : 0;
}

template <class Number>
Element numberElement(uint32_t type, Number value)
{
    Element element{type, Bytes(sizeof value)};
    std::memcpy(element.value.data(), &value, sizeof value);
    return element;
}

/// Reads bytes from the front; whoever reads has asked for their number first.
class Reader {
public:
    explicit Reader(std::span<const uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] size_t left() const { return bytes_.size(); }

    std::optional<Element> field(const Field &field)
    {
        if (left() < field.size()) return {};
        const std::span<const uint8_t> value = take(field.size());
        switch (field.kind) {
        case Field::Kind::number16: return numberElement(kKind16, oruAsfGet16(value.data()));
        case Field::Kind::number32: return numberElement(kKind32, oruAsfGet32(value.data()));
        case Field::Kind::address: break;
        }
        return Element{kKindAddress, {value.begin(), value.end()}};
    }

    std::optional<Element> element()
    {
        auto consumed = static_cast<uint32_t>(left());
        const std::unique_ptr<OruAsfTtlv, decltype(&oruAsfFreeStructTtlv)> ttlv{
            oruAsfGetStructTtlv(bytes_.data(), &consumed), &oruAsfFreeStructTtlv};
        if (ttlv == nullptr || consumed == 0 || consumed > left()) return {};
        take(consumed);
        const auto *value = static_cast<const uint8_t *>(ttlv->value);
        return Element{ttlv->type, {value, value + ttlv->length}};
    }

private:
    std::span<const uint8_t> take(size_t count)
    {
        const auto taken = bytes_.first(count);
        bytes_ = bytes_.subspan(count);
        return taken;
    }

    std::span<const uint8_t> bytes_;
};

bool hasForm(const std::vector<Element> &elements, const Form &form)
{
    return std::equal(elements.begin(), elements.end(), form.begin(), form.end(),
                      [](const Element &a, const ElementShape &b) { return a.type == b.type; });
}

void describe(std::string &text, const char *name, const std::string &value)
{
    if (!text.empty()) text += ", ";
    text += format("%s %s", name, value.c_str());
}

} // namespace

uint32_t Field::size() const
{
    switch (kind) {
    case Kind::number16: return 2;
    case Kind::number32: return 4;
    case Kind::address: return 6;
    }
    return 0;
}

uint32_t Element::number() const
{
    if (value.size() != widthOf(type)) return 0;
    switch (value.size()) {
    case 1: return value[0];
    case 2: {
        uint16_t number = 0;
        std::memcpy(&number, value.data(), sizeof number);
        return number;
    }
    case 4: {
        uint32_t number = 0;
        std::memcpy(&number, value.data(), sizeof number);
        return number;
    }
    default: return 0;
    }
}

std::string Element::text() const
{
    if (widthOf(type) != 0) return format("%u", number());
    if (kindOf(type) == kKindText)
        return printable({reinterpret_cast<const char *>(value.data()), value.size()});
    return hex(value);
}

const Element *Message::find(uint32_t elementType) const
{
    const auto found = std::ranges::find(elements, elementType, &Element::type);
    return found == elements.end() ? nullptr : &*found;
}

uint32_t Message::number(uint32_t elementType) const
{
    const Element *element = find(elementType);
    return element == nullptr ? 0 : element->number();
}

std::span<const uint8_t> Message::bytes(uint32_t elementType) const
{
    const Element *element = find(elementType);
    if (element == nullptr) return {};
    return element->value;
}

std::optional<uint16_t> messageType(std::span<const uint8_t> packet)
{
    if (packet.size() < 4 || oruAsfGet16(packet.data() + 2) != packet.size()) return {};
    return oruAsfGet16(packet.data());
}

std::optional<Message> decode(std::span<const uint8_t> packet, const Shape &shape)
{
    const auto type = messageType(packet);
    if (!type) return {};

    Message message;
    message.type = *type;
    Reader reader{packet.subspan(4)};
    for (const Field &field : shape.fields) {
        const auto value = reader.field(field);
        if (!value) return {};
        describe(message.description, field.name, value->text());
        message.fields.push_back(*value);
    }
    while (reader.left() > 0) {
        const auto element = reader.element();
        if (!element) return {};
        message.elements.push_back(*element);
    }

    for (const Form &form : shape.forms) {
        if (!hasForm(message.elements, form)) continue;
        for (size_t i = 0; i < form.size(); ++i)
            describe(message.description, form[i].name,
                     form[i].secret ? "***" : message.elements[i].text());
        return message;
    }
    return {};
}

Writer &Writer::put16(uint16_t value)
{
    bytes_.resize(bytes_.size() + 2);
    oruAsfPut16(bytes_.data() + bytes_.size() - 2, value);
    return *this;
}

Writer &Writer::put32(uint32_t value)
{
    bytes_.resize(bytes_.size() + 4);
    oruAsfPut32(bytes_.data() + bytes_.size() - 4, value);
    return *this;
}

Writer &Writer::put(std::span<const uint8_t> bytes)
{
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return *this;
}

Writer &Writer::number(uint32_t type, uint32_t value)
{
    const auto narrow8 = static_cast<uint8_t>(value);
    const auto narrow16 = static_cast<uint16_t>(value);
    switch (widthOf(type)) {
    case 1: append(type, 1, &narrow8); break;
    case 2: append(type, 2, &narrow16); break;
    case 4: append(type, 4, &value); break;
    default: break;
    }
    return *this;
}

Writer &Writer::element(uint32_t type, std::span<const uint8_t> value)
{
    const auto length = static_cast<uint32_t>(value.size());
    if (widthOf(type) != 0 || (type >> 16 == kKindAddress >> 16 && length != 6)) return *this;
    append(type, kindOf(type) == kKindText ? length + 6 : length, value.data());
    return *this;
}

void Writer::append(uint32_t type, uint32_t length, const void *value)
{
    const size_t before = bytes_.size();
    bytes_.resize(before + 6 + length);
    uint8_t *at = bytes_.data() + before;
    const uint8_t *end = oruAsfPutTtlv(at, type, length, value);
    bytes_.resize(before + static_cast<size_t>(end - at));
}

Writer Writer::withoutElements() const
{
    Writer writer{type_};
    writer.elementsAt_ = elementsAt_;
    writer.bytes_.assign(bytes_.data(), bytes_.data() + elementsAt_);
    return writer;
}

Bytes Writer::message() const
{
    Bytes message = bytes_;
    oruAsfPut16(message.data(), type_);
    oruAsfPut16(message.data() + 2, static_cast<uint16_t>(message.size()));
    return message;
}

Writer answer(uint16_t type)
{
    Writer writer{type};
    writer.put32(0);
    writer.elementsAt_ = writer.bytes_.size();
    return writer;
}

} // namespace orusim
