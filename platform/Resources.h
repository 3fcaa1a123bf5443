#pragma once
// Resources of an image (pages, pictures, the text document): on Windows the
// image's own resources, elsewhere a table embedded at build time and found
// by the same rules. Types and names are numbers or texts; texts compare
// without regard to case, as Windows compares them.
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace kvt1::platform {

class ResourceId {
 public:
  ResourceId(unsigned short number) : number_(number) {}
  ResourceId(std::wstring name) : name_(std::move(name)) {}
  ResourceId(const wchar_t* name) : name_(name) {}

  bool isNumber() const { return name_.empty(); }
  unsigned short number() const { return number_; }
  const std::wstring& name() const { return name_; }
  bool matches(unsigned short number, const wchar_t* name) const;

 private:
  unsigned short number_ = 0;
  std::wstring name_;
};

// The RT_HTML resource type.
constexpr unsigned short kResourceTypeHtml = 23;

struct ResourceData {
  const unsigned char* bytes = nullptr;
  std::size_t size = 0;
};

// The resource in the image (an instance handle: the load address of a
// module or program), or nothing when the image has none of that type and name.
// The bytes stay valid while the image is loaded.
std::optional<ResourceData> findResource(void* image, const ResourceId& type, const ResourceId& name);

// The image that resource lookups of the text store use now: the module's
// language resources while a handler of the module runs; null before.
void* resourceModule();
void setResourceModule(void* image);

}  // namespace kvt1::platform
