#pragma once
// GDI+ for as long as a page container needs it: the first session starts
// GDI+, the last one to end shuts it down. Sessions begin and end with the
// containers, never in DllMain, where GDI+ must not be started or stopped.
namespace kvt1::html {

class GdiplusSession {
 public:
  GdiplusSession();
  ~GdiplusSession();
  GdiplusSession(const GdiplusSession&) = delete;
  GdiplusSession& operator=(const GdiplusSession&) = delete;

  // False when GDI+ could not be started: nothing is drawn then.
  bool ready() const { return ready_; }

 private:
  bool ready_ = false;
};

}  // namespace kvt1::html
