#include "select.hpp"

#include "nearest.hpp"

namespace oructl {
namespace {

std::string_view nameOf(const Field &field)
{
    return field.name.empty() ? "value" : field.name;
}

std::string noField(std::string_view name, std::span<const Field> fields)
{
    std::vector<std::string_view> names;
    for (const Field &field : fields)
        if (field.belongsTo(Use::Get)) names.push_back(nameOf(field));
    return "--fields: no field is called " + quoted(name) + "; there is " +
           (names.empty() ? "none" : alternatives(names));
}

} // namespace

std::vector<Value> Selection::of(const std::vector<Value> &values) const
{
    std::vector<Value> chosen;
    for (const size_t place : places) chosen.push_back(values[place]);
    return chosen;
}

Selection select(const Request &request, std::span<const Field> fields)
{
    Selection selection;
    const auto add = [&](size_t place) {
        selection.fields.push_back(fields[place]);
        selection.places.push_back(place);
    };
    if (request.fields == nullptr) {
        for (size_t i = 0; i < fields.size(); ++i) add(i);
        return selection;
    }
    std::string_view rest = request.fields;
    do {
        const std::string_view name = rest.substr(0, rest.find(','));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        size_t place = 0;
        while (place < fields.size() &&
               (nameOf(fields[place]) != name || !fields[place].belongsTo(Use::Get)))
            ++place;
        if (place == fields.size()) {
            selection.problem = noField(name, fields);
            return selection;
        }
        add(place);
    } while (!rest.empty());
    return selection;
}

} // namespace oructl
