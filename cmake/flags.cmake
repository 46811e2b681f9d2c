# Compiler flags of every target.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnull-dereference
                    "$<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Wold-style-cast;-Woverloaded-virtual>")
# Designated initialisers leave the other members at their defaults on purpose.
add_compile_options(-Wno-missing-field-initializers)

if(VESTARA_WERROR)
  add_compile_options(-Werror)
endif()

if(VESTARA_SANITIZE STREQUAL "thread")
  add_compile_options(-fsanitize=thread)
  add_link_options(-fsanitize=thread)
elseif(VESTARA_SANITIZE)
  # vptr checks need every class's type information exported; the libraries hide theirs.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined -fno-sanitize=vptr)
endif()

# Two types of one name are one and the same to the linker: where it sees both, that ends the build.
if(CMAKE_INTERPROCEDURAL_OPTIMIZATION AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_link_options(-Werror=odr)
endif()
