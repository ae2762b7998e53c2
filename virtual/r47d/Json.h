#pragma once
// Just enough to write one line of JSON. Names and texts are this program's own: no character in them needs escaping.

#include <charconv>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace r47
{

/// A code as it is written everywhere: four hexadecimal digits.
inline std::string hexCode(std::uint16_t code)
{
    constexpr char kDigits[] = "0123456789abcdef";
    return {kDigits[code >> 12], kDigits[(code >> 8) & 15], kDigits[(code >> 4) & 15], kDigits[code & 15]};
}

class JsonWriter
{
public:
    JsonWriter& beginObject(std::string_view name = {}) { return open(name, '{'); }
    JsonWriter& endObject() { return close('}'); }
    JsonWriter& beginArray(std::string_view name = {}) { return open(name, '['); }
    JsonWriter& endArray() { return close(']'); }

    template<typename T> JsonWriter& member(std::string_view name, T number)
    {
        key(name);
        return put(number);
    }
    template<typename T> JsonWriter& value(T number)
    {
        key({});
        return put(number);
    }

    std::string take() { return std::move(mText); }

private:
    void key(std::string_view name)
    {
        if (mNeedComma)
            mText += ',';
        if (!name.empty())
            mText.append("\"").append(name).append("\":");
        mNeedComma = true;
    }
    JsonWriter& open(std::string_view name, char bracket)
    {
        key(name);
        mText += bracket;
        mNeedComma = false;
        return *this;
    }
    JsonWriter& close(char bracket)
    {
        mText += bracket;
        mNeedComma = true;
        return *this;
    }
    template<typename T> JsonWriter& put(T number)
    {
        if constexpr (std::same_as<T, bool>) {
            mText += number ? "true" : "false";
        } else {
            char digits[32];
            mText.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
        }
        return *this;
    }

    std::string mText;
    bool mNeedComma = false;
};

} // namespace r47
