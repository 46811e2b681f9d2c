#include <exception>
#include <iostream>

#include "automation/error.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "automation/system/shared_object.h"

// A host that has linked nothing but the component model: creates the class that is named, prints its name and the
// library it came from.

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    const auto object = automation::create_object(argv[1]);
    std::cout << object->description().name << "\n" << automation::shared_object_path(&object->description()) << "\n";
    return 0;
  } catch (const automation::RunTimeError& error) {
    std::cout << "error " << error.number() << "\n" << error.what() << "\n";
  } catch (const std::exception& error) {
    std::cout << error.what() << "\n";
  }
  return 1;
}
