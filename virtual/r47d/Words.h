#pragma once
// Reading the words of a line. What is no number, or lies outside the given range, is nothing.

#include <charconv>
#include <optional>
#include <string_view>
#include <vector>

namespace r47
{

/// The parts between blanks.
inline std::vector<std::string_view> words(std::string_view line)
{
    std::vector<std::string_view> parts;
    while (!line.empty()) {
        const auto end = std::min(line.find(' '), line.size());
        if (end > 0)
            parts.push_back(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return parts;
}

template<typename T> std::optional<T> number(std::string_view word, T least, T most)
{
    if (word.starts_with('+'))
        word.remove_prefix(1);
    T result{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), result);
    if (error != std::errc() || end != word.data() + word.size() || !(result >= least && result <= most))
        return {};
    return result;
}

inline std::optional<bool> onOff(std::string_view word)
{
    if (word == "on" || word == "1")
        return true;
    if (word == "off" || word == "0")
        return false;
    return {};
}

} // namespace r47
