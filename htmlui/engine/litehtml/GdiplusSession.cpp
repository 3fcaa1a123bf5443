#include "htmlui/engine/litehtml/GdiplusSession.h"

#include "htmlui/engine/litehtml/GdiplusApi.h"

#include <mutex>

namespace kvt1::html {
namespace {

std::mutex sessionMutex;
int sessionCount = 0;
ULONG_PTR gdiplusToken = 0;

}  // namespace

GdiplusSession::GdiplusSession() {
  std::lock_guard<std::mutex> lock(sessionMutex);
  if (sessionCount == 0) {
    Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&gdiplusToken, &input, nullptr) != Gdiplus::Ok) return;
  }
  ++sessionCount;
  ready_ = true;
}

GdiplusSession::~GdiplusSession() {
  if (!ready_) return;
  std::lock_guard<std::mutex> lock(sessionMutex);
  if (--sessionCount == 0) Gdiplus::GdiplusShutdown(gdiplusToken);
}

}  // namespace kvt1::html
