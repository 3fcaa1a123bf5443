#pragma once
// Decides whether a requested update check must be skipped: while one check
// runs (its dialog's modal loop lets the host dispatch further LISP calls),
// another one is not started.
namespace Hv::Http {

class CHvUpdateCheckGuard {
 public:
  static CHvUpdateCheckGuard& Instance();

  bool MustSkip() const { return m_running; }

  // Marks a check as running for its lifetime.
  class Running {
   public:
    explicit Running(CHvUpdateCheckGuard& guard) : m_guard(guard) { m_guard.m_running = true; }
    ~Running() { m_guard.m_running = false; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

   private:
    CHvUpdateCheckGuard& m_guard;
  };

 private:
  bool m_running = false;
};

}  // namespace Hv::Http
