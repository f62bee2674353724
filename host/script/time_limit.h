// How long scripts may run.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace qen::host {

class TimeLimit {
 public:
  // While it lives, what runs may take so many seconds, or what is left of those of the scope around it.
  class Scope {
   public:
    Scope(TimeLimit& limit, double seconds);
    ~Scope() { limit_.end_ = before_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    friend class TimeLimit;
    struct End {
      std::chrono::steady_clock::time_point time;
      double seconds = 0.0;  // that were given
    };

    TimeLimit& limit_;
    std::optional<End> before_;
  };

  [[nodiscard]] bool IsOver() const { return end_ && std::chrono::steady_clock::now() >= end_->time; }

  [[nodiscard]] std::string Complaint() const;  // that it is over

  void Check() const;  // throws std::runtime_error with the complaint when it is over

 private:
  std::optional<Scope::End> end_;
};

}  // namespace qen::host
