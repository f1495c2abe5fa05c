// What callers send, and what is sent back, as bytes.
#pragma once

#include "text.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace orusim {

/// The largest message, one more than its length field can tell.
inline constexpr uint32_t kRoom = 65536;

/// A fixed field at the start of a body.
struct Field {
    enum class Kind { number16, number32, address };
    const char *name;
    Kind kind;

    [[nodiscard]] uint32_t size() const;
};

/// An element that belongs into a message.
struct ElementShape {
    uint32_t type;
    const char *name;
    bool secret = false; // its value stays out of the log
};

/// The elements of a message, in their order.
using Form = std::vector<ElementShape>;

/// What a message looks like: the fixed fields, then the elements of one of the forms.
struct Shape {
    std::vector<Field> fields;
    std::vector<Form> forms = {{}};
};

struct Element {
    uint32_t type;
    Bytes value; // numbers in host order

    /// The number, of kind 1, 2 or 3; 0 of another kind.
    [[nodiscard]] uint32_t number() const;
    [[nodiscard]] std::string text() const;
};

/// A message that has its shape.
struct Message {
    uint16_t type = 0;
    std::vector<Element> fields; // numbers are kept as elements of kind 2 and 3, addresses of 12
    std::vector<Element> elements;
    std::string description; // every field and element with its value, for the log

    [[nodiscard]] bool has(uint32_t elementType) const { return find(elementType) != nullptr; }
    /// The number of an element, 0 when there is none.
    [[nodiscard]] uint32_t number(uint32_t elementType) const;
    /// The bytes of an element, none when there is none.
    [[nodiscard]] std::span<const uint8_t> bytes(uint32_t elementType) const;
    /// The number of a fixed field that the shape has.
    [[nodiscard]] uint32_t field(size_t index) const { return fields.at(index).number(); }

private:
    [[nodiscard]] const Element *find(uint32_t elementType) const;
};

/// The type of a whole message: its length field says as many bytes as there are.
std::optional<uint16_t> messageType(std::span<const uint8_t> packet);

/// The message, when it has the shape to its last byte.
std::optional<Message> decode(std::span<const uint8_t> packet, const Shape &shape);

/// A message that is being written.
class Writer {
public:
    explicit Writer(uint16_t type) : type_(type), bytes_(4) {}

    Writer &put16(uint16_t value);
    Writer &put32(uint32_t value);
    Writer &put(std::span<const uint8_t> bytes);
    /// An element of kind 1, 2 or 3.
    Writer &number(uint32_t type, uint32_t value);
    /// An element of another kind; nothing when the value does not suit its kind.
    Writer &element(uint32_t type, std::span<const uint8_t> value);

    [[nodiscard]] uint16_t type() const { return type_; }
    /// The message, its head filled in.
    [[nodiscard]] Bytes message() const;
    /// What stands behind the head.
    [[nodiscard]] Bytes body() const { return {bytes_.begin() + 4, bytes_.end()}; }
    /// The same answer with nothing but its fixed fields.
    [[nodiscard]] Writer withoutElements() const;

private:
    friend Writer answer(uint16_t type);
    void append(uint32_t type, uint32_t length, const void *value);

    uint16_t type_;
    Bytes bytes_;
    size_t elementsAt_ = 4; // where elements begin
};

/// An answer of the usual form: type, a 32-bit 0, then elements.
Writer answer(uint16_t type);

} // namespace orusim
