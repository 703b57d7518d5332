// Times in milliseconds.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
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

// The times of one piece of work, one a round.
class Series {
 public:
  void Add(double time) { times_.push_back(time); }
  double Least() const { return *std::min_element(times_.begin(), times_.end()); }
  double Median() const {
    std::vector<double> times = times_;
    const auto middle = times.begin() + std::ssize(times) / 2;
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
  }
  // How many times as long as the other each took, round by round: the machine's moods of the hour cancel
  // out.
  Series Over(const Series& other) const {
    Series ratios;
    for (std::size_t i = 0; i < times_.size(); ++i)
      ratios.Add(times_[i] / other.times_[i]);
    return ratios;
  }
  // How much longer than the other each took, round by round.
  Series Less(const Series& other) const {
    Series rest;
    for (std::size_t i = 0; i < times_.size(); ++i)
      rest.Add(times_[i] - other.times_[i]);
    return rest;
  }
  // The same without what every time includes.
  Series Less(double part) const {
    Series rest;
    for (const double time : times_)
      rest.Add(time - part);
    return rest;
  }

 private:
  std::vector<double> times_;
};
