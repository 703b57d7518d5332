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

// The times of one piece of work.
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
