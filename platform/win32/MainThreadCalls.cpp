#include "platform/MainThreadCalls.h"

#include <windows.h>

#include <deque>
#include <mutex>
#include <utility>

#include "platform/ThisModule.h"

namespace kvt1::platform {

struct MainThreadCalls::Queue {
  std::mutex mutex;
  std::deque<std::function<void()>> calls;
  HWND window = nullptr;
};

namespace {

const wchar_t kWindowClass[] = L"KVT1MainThreadCalls";
constexpr UINT kRunCalls = WM_APP + 1;

HINSTANCE moduleInstance() { return static_cast<HINSTANCE>(thisModuleHandle()); }

// Runs what was posted until then; calls posted meanwhile come with their own message.
LRESULT CALLBACK callsProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kRunCalls) return DefWindowProcW(window, message, wParam, lParam);
  auto* queue = reinterpret_cast<MainThreadCalls::Queue*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (queue == nullptr) return 0;
  std::deque<std::function<void()>> calls;
  {
    const std::lock_guard<std::mutex> lock(queue->mutex);
    calls.swap(queue->calls);
  }
  for (const std::function<void()>& call : calls) {
    try {
      call();
    } catch (...) {
      // Nothing leaves a window procedure.
    }
  }
  return 0;
}

}  // namespace

MainThreadCalls::MainThreadCalls() : queue_(std::make_shared<Queue>()) {
  WNDCLASSEXW windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = &callsProcedure;
  windowClass.hInstance = moduleInstance();
  windowClass.lpszClassName = kWindowClass;
  // Registered by an earlier object of this module when that fails.
  RegisterClassExW(&windowClass);
  queue_->window =
      CreateWindowExW(0, kWindowClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, moduleInstance(), nullptr);
  if (queue_->window != nullptr)
    SetWindowLongPtrW(queue_->window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(queue_.get()));
}

MainThreadCalls::~MainThreadCalls() {
  HWND window = nullptr;
  {
    const std::lock_guard<std::mutex> lock(queue_->mutex);
    queue_->calls.clear();
    std::swap(window, queue_->window);
  }
  if (window != nullptr) DestroyWindow(window);
  // A class of a library outlives the library unless it is unregistered;
  // this fails while another object of this module still has a window.
  UnregisterClassW(kWindowClass, moduleInstance());
}

bool MainThreadCalls::post(std::function<void()> call) {
  const std::lock_guard<std::mutex> lock(queue_->mutex);
  if (queue_->window == nullptr) return false;
  queue_->calls.push_back(std::move(call));
  if (PostMessageW(queue_->window, kRunCalls, 0, 0)) return true;
  queue_->calls.pop_back();
  return false;
}

}  // namespace kvt1::platform
