#include "core/dict.hpp"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace oru {

Dict::Created Dict::create(const char *path)
{
    Created created{nullptr, false};
    created.open = oruAsfDictCreate(&created.handle, path) == 0;
    return created;
}

void Dict::keepOpen()
{
#ifdef __SANITIZE_ADDRESS__
    __lsan_ignore_object(handle_); // and what it holds: this one is meant to stay
#endif
    open_ = false;
}

int32_t getInt(OruAsfDict *dict, Key key, int32_t *value, int32_t flag)
{
    return oruAsfDictGetInt(dict, KeyText{key}, value, flag);
}

int32_t getBool(OruAsfDict *dict, Key key, int32_t *value, int32_t flag)
{
    return oruAsfDictGetBool(dict, KeyText{key}, value, flag);
}

int32_t getString(OruAsfDict *dict, Key key, const char **value, int32_t flag)
{
    return oruAsfDictGetString(dict, KeyText{key}, value, flag);
}

int32_t getDelimitedString(OruAsfDict *dict, Key key, const char **value, int32_t flag)
{
    return oruAsfDictGetDelimitedString(dict, KeyText{key}, value, flag);
}

int32_t setString(OruAsfDict *dict, Key key, const char *value)
{
    return oruAsfDictSetString(dict, KeyText{key}, value);
}

int32_t setString(OruAsfDict *dict, Key key, Number value)
{
    return oruAsfDictSetString(dict, KeyText{key}, NumberText{value});
}

int32_t setDelimitedString(OruAsfDict *dict, Key key, const char *value)
{
    return oruAsfDictSetDelimitedString(dict, KeyText{key}, value);
}

} // namespace oru
