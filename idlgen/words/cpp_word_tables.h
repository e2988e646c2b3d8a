#pragma once

#include <string_view>

#include "words/cpp_words.h"
#include "words/tables.h"

namespace zentho::idlgen {

// The words that the functions of cpp_words.h know. cpp_words_test.cpp compares them with the
// compiler.

/// A keyword of C++.
struct KeywordRow {
  std::string_view word;
  Keyword kind = Keyword::Other;
};

// clang-format off
/// All keywords, in alphabetical order.
inline constexpr auto keywords = Table<KeywordRow>({
    {"alignas"}, {"alignof", Keyword::Call}, {"and"}, {"and_eq"}, {"asm"}, {"auto"}, {"bitand"},
    {"bitor"}, {"bool", Keyword::Type}, {"break"}, {"case"}, {"catch"}, {"char", Keyword::Type},
    {"char16_t", Keyword::Type}, {"char32_t", Keyword::Type}, {"char8_t", Keyword::Cpp20},
    {"class"}, {"co_await", Keyword::Cpp20}, {"co_return", Keyword::Cpp20},
    {"co_yield", Keyword::Cpp20}, {"compl"}, {"concept", Keyword::Cpp20}, {"const"},
    {"const_cast", Keyword::Cast}, {"consteval", Keyword::Cpp20}, {"constexpr"},
    {"constinit", Keyword::Cpp20}, {"continue"}, {"decltype", Keyword::Call}, {"default"},
    {"delete"}, {"do"}, {"double", Keyword::Type}, {"dynamic_cast", Keyword::Cast}, {"else"},
    {"enum"}, {"explicit"}, {"export"}, {"extern"}, {"false"}, {"float", Keyword::Type}, {"for"},
    {"friend"}, {"goto"}, {"if"}, {"inline"}, {"int", Keyword::Type}, {"long", Keyword::Type},
    {"mutable"}, {"namespace"}, {"new"}, {"noexcept", Keyword::Call}, {"not"}, {"not_eq"},
    {"nullptr"}, {"operator"}, {"or"}, {"or_eq"}, {"private"}, {"protected"}, {"public"},
    {"register"}, {"reinterpret_cast", Keyword::Cast}, {"requires", Keyword::Cpp20}, {"return"},
    {"short", Keyword::Type}, {"signed", Keyword::Type}, {"sizeof", Keyword::Call}, {"static"},
    {"static_assert"}, {"static_cast", Keyword::Cast}, {"struct"}, {"switch"}, {"template"},
    {"this"}, {"thread_local"}, {"throw"}, {"true"}, {"try"}, {"typedef"},
    {"typeid", Keyword::Call}, {"typename"}, {"union"}, {"unsigned", Keyword::Type}, {"using"},
    {"virtual"}, {"void"}, {"volatile"}, {"wchar_t", Keyword::Type}, {"while"}, {"xor"}, {"xor_eq"}});
// clang-format on

/// The integer types of <cstdint> and <cstddef>.
inline constexpr auto libraryTypes = Table<std::string_view>(
    {"int16_t",        "int32_t",        "int64_t",       "int8_t",        "int_fast16_t",
     "int_fast32_t",   "int_fast64_t",   "int_fast8_t",   "int_least16_t", "int_least32_t",
     "int_least64_t",  "int_least8_t",   "intmax_t",      "intptr_t",      "ptrdiff_t",
     "size_t",         "uint16_t",       "uint32_t",      "uint64_t",      "uint8_t",
     "uint_fast16_t",  "uint_fast32_t",  "uint_fast64_t", "uint_fast8_t",  "uint_least16_t",
     "uint_least32_t", "uint_least64_t", "uint_least8_t", "uintmax_t",     "uintptr_t"});

/// Other types, with names in lower case, that <string> declares together with parts of the C
/// library. Found with g++ 12 and clang++ 14.
// clang-format off
inline constexpr auto cLibraryTypes = Table<std::string_view>({
    "blkcnt64_t", "blkcnt_t", "blksize_t", "caddr_t", "clock_t", "clockid_t", "comparison_fn_t",
    "cookie_close_function_t", "cookie_io_functions_t", "cookie_read_function_t",
    "cookie_seek_function_t", "cookie_write_function_t", "daddr_t", "dev_t", "div_t",
    "drand48_data", "error_t", "fd_mask", "fd_set", "fpos64_t", "fpos_t", "fsblkcnt64_t",
    "fsblkcnt_t", "fsfilcnt64_t", "fsfilcnt_t", "fsid_t", "gid_t", "id_t", "ino64_t", "ino_t",
    "key_t", "lconv", "ldiv_t", "lldiv_t", "locale_t", "loff_t", "max_align_t", "mbstate_t",
    "mode_t", "nlink_t", "off64_t", "off_t", "pid_t", "pthread_attr_t", "pthread_barrier_t",
    "pthread_barrierattr_t", "pthread_cond_t", "pthread_condattr_t", "pthread_key_t",
    "pthread_mutex_t", "pthread_mutexattr_t", "pthread_once_t", "pthread_rwlock_t",
    "pthread_rwlockattr_t", "pthread_spinlock_t", "pthread_t", "quad_t", "random_data",
    "register_t", "sigset_t", "ssize_t", "suseconds_t", "time_t", "timer_t", "timespec", "timeval",
    "u_char", "u_int", "u_int16_t", "u_int32_t", "u_int64_t", "u_int8_t", "u_long", "u_quad_t",
    "u_short", "uid_t", "uint", "ulong", "useconds_t", "ushort", "va_list", "wint_t"});
// clang-format on

/// The macros of <cstdint> for the limits of its integer types, of `size_t` and `ptrdiff_t`.
inline constexpr auto integerMacros = Table<std::string_view>(
    {"INT16_MAX",       "INT16_MIN",        "INT32_MAX",        "INT32_MIN",
     "INT64_MAX",       "INT64_MIN",        "INT8_MAX",         "INT8_MIN",
     "INTMAX_MAX",      "INTMAX_MIN",       "INTPTR_MAX",       "INTPTR_MIN",
     "INT_FAST16_MAX",  "INT_FAST16_MIN",   "INT_FAST32_MAX",   "INT_FAST32_MIN",
     "INT_FAST64_MAX",  "INT_FAST64_MIN",   "INT_FAST8_MAX",    "INT_FAST8_MIN",
     "INT_LEAST16_MAX", "INT_LEAST16_MIN",  "INT_LEAST32_MAX",  "INT_LEAST32_MIN",
     "INT_LEAST64_MAX", "INT_LEAST64_MIN",  "INT_LEAST8_MAX",   "INT_LEAST8_MIN",
     "PTRDIFF_MAX",     "PTRDIFF_MIN",      "SIZE_MAX",         "UINT16_MAX",
     "UINT32_MAX",      "UINT64_MAX",       "UINT8_MAX",        "UINTMAX_MAX",
     "UINTPTR_MAX",     "UINT_FAST16_MAX",  "UINT_FAST32_MAX",  "UINT_FAST64_MAX",
     "UINT_FAST8_MAX",  "UINT_LEAST16_MAX", "UINT_LEAST32_MAX", "UINT_LEAST64_MAX",
     "UINT_LEAST8_MAX"});

}  // namespace zentho::idlgen
