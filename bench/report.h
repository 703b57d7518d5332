// What the benchmark prints, as Markdown, and whether it has found fault.
#pragma once

#include <cstdarg>
#include <cstdio>
#include <string>

#include "stopwatch.h"

inline constexpr int kRounds = 15;  // an odd number has a median

class Report {
 public:
  // A heading and the head of a table below it. `columns` are divided by " | ".
  void Table(const char* heading, const std::string& columns) {
    std::string rule;
    for (std::size_t at = 0; at != std::string::npos; at = columns.find(" | ", at + 1))
      rule += "---|";
    std::printf("\n## %s\n\n| %s |\n|%s\n", heading, columns.c_str(), rule.c_str());
  }

  [[gnu::format(gnu_printf, 2, 3)]] void Row(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::fputs("| ", stdout);
    std::vprintf(format, arguments);
    std::fputs(" |\n", stdout);
    std::fflush(stdout);
    va_end(arguments);
  }

  // A row with the median and the least of a series.
  void Times(const std::string& what, const Series& series) {
    Row("%s | %.1f | %.1f", what.c_str(), series.Median(), series.Least());
  }

  // A row with a ratio that may not exceed `limit`.
  void Target(const char* what, double ratio, double limit) {
    Row("%s | %.2f | %.2f | %s", what, ratio, limit, ratio <= limit ? "met" : "**missed**");
    failed_ |= ratio > limit;
  }

  // Without `sound`, the figures are worth nothing.
  void Demand(bool sound, const char* what) {
    if (sound) return;
    std::printf("\n**%s**\n", what);
    failed_ = true;
  }

  // The last line, which says how it went: under Wine an exit code may not arrive.
  void End() const { std::puts(failed_ ? "\nSomething is amiss." : "\nEvery target is met."); }

 private:
  bool failed_ = false;
};
