#pragma once

#include "automation/com/system/platform.h"
#include "automation/object.h"

// How two libraries of one build know each other's objects, so that they need no calls by name. Hosts never see it: the
// interface's id changes with every version and compiler.

namespace automation::com {

/// One per library; lives as long as that is loaded.
class NativeLibrary {
 public:
  /// The face of an object whose class this library has, counted for the caller.
  virtual IDispatch* hand_out_own(Object& object) = 0;

 protected:
  ~NativeLibrary() = default;
};

struct NativeObject : public IUnknown {
  /// The object itself, not counted, and the library that it belongs to.
  virtual Object* STDMETHODCALLTYPE object(NativeLibrary** library) = 0;
};

const GUID& native_object_id();

/// Whether errors can be raised from one library through another. Where tables of frames belong to one library
/// (32 bits), sister libraries call each other by name like anybody else.
#if defined(__SEH__)
inline constexpr bool sisters_share_objects = true;
#else
inline constexpr bool sisters_share_objects = false;
#endif

}  // namespace automation::com
