// Times in milliseconds.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

class Stopwatch {
 public:
  double Elapsed() const {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

template <class Work>
double Time(Work work) {
  const Stopwatch watch;
  work();
  return watch.Elapsed();
}

inline double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  const std::size_t half = times.size() / 2;
  return times.size() % 2 ? times[half] : (times[half - 1] + times[half]) / 2;
}
