#ifndef AUTOMATION_C_ABI_AUTOMATION_H /* installed */
#define AUTOMATION_C_ABI_AUTOMATION_H

/* The component model for other languages: objects by name, members by name or id, values that carry their type,
 * events, and objects that the host itself implements. Plain C; no exception leaves these functions.
 *
 *   au_object* reader;
 *   if (au_create_object("Library.Reader", &reader) != AU_OK) complain();
 *   au_value result = {0};
 *   if (au_call(reader, "Newest", AU_METHOD, NULL, 0, &result) == AU_OK) show(result.as.text.bytes);
 *   au_clear(&result);
 *   au_release(reader);
 *
 * Threads: each function may be called on any thread, at the same time as others. An object, with what it was given and
 * what it handed out (its connector, its record sets), belongs to one thread at a time; another thread may have it
 * between two calls. Objects that do not share these are independent. au_retain and au_release may run beside any call.
 *
 * Text is UTF-8, with a length and, where this library made it, a NUL after it.
 */

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#define AU_API __declspec(dllexport)
#else
#define AU_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Grows when something is added; the major half (above 16 bits) when something changes. */
#define AU_ABI_VERSION 0x00010002u

/* The version of the loaded library. */
AU_API uint32_t au_abi_version(void);

/* The outcome of a call. Only AU_OK has a result; au_last_error says why there is none. */
typedef int32_t au_status;
enum {
  AU_OK = 0,
  AU_RAISED = 1,       /* the member raised a run-time error: its number, description and source are in au_last_error */
  AU_BAD_ARGUMENT = 2, /* a null pointer, an unknown kind, a value of no known kind */
  AU_BAD_HANDLE =
      3, /* not a live object. Null always; released ones in debug builds or with AUTOMATION_CHECK_HANDLES=1 */
  AU_BAD_VERSION = 4 /* a table of callbacks made for another version */
};

typedef struct au_error {
  int32_t number;
  const char* description;
  const char* source;
} au_error;

/* The last failure on this thread; number 0 when there was none yet. Valid until the next failure on this thread. */
AU_API au_error au_last_error(void);

/* A counted object. */
typedef struct au_object au_object;
/* An array, reached through the value that holds it. */
typedef struct au_array au_array;

typedef int32_t au_kind;
enum {
  AU_EMPTY,
  AU_NULL,
  AU_MISSING, /* an optional argument that is left out */
  AU_BOOLEAN, /* as.number: 0 or 1 */
  AU_INTEGER, /* 16 bits, in as.number */
  AU_LONG,    /* 32 bits, in as.number */
  AU_SINGLE,  /* in as.real */
  AU_DOUBLE,  /* in as.real */
  AU_DATE,    /* in as.real: days since 1899-12-30, the fraction is the time of day */
  AU_TEXT,
  AU_OBJECT, /* a null object is "nothing" */
  AU_ARRAY
};

/* A value. All zero is Empty. What the library puts into a value is owned by it (owned = 1) and is given back by
 * au_clear; a host may also fill in values that point to its own memory and objects (owned = 0), which must outlive the
 * call. */
typedef struct au_value {
  au_kind kind;
  int32_t owned;
  union {
    int32_t number;
    double real;
    struct {
      const char* bytes;
      size_t length;
    } text;
    au_object* object;
    struct {
      au_object* object;
      const void* of_class; /* in what the library fills in: the same for all objects of a class. Since 1.2 */
    } described;
    au_array* array;
  } as;
} au_value;

/* Gives back what the value owns and makes it Empty. Null is nothing to do. */
AU_API void au_clear(au_value* value);
/* Clears the value, then stores a copy of the text, or a counted reference to the object. */
AU_API au_status au_set_text(au_value* value, const char* bytes, size_t length);
AU_API au_status au_set_object(au_value* value, au_object* object);

/* ---- Objects ---- */

/* Creates an object by its programmatic identifier, loading the library that is registered for it. Error 429 when there
 * is none. The caller owns one count. */
AU_API au_status au_create_object(const char* identifier, au_object** object);
AU_API au_status au_retain(au_object* object);
AU_API au_status au_release(au_object* object);

typedef int32_t au_invoke_kind;
enum { AU_METHOD, AU_GET, AU_PUT, AU_PUTREF };

/* The id of a member, found without regard to case. Error 438 when there is none. */
AU_API au_status au_get_id(au_object* object, const char* member, int32_t* id);

/* Calls a member. The last `name_count` arguments are named by `names`, the others are positional; AU_MISSING leaves
 * one out. An assignment carries its value last. Arguments that the member writes back are replaced in place (and are
 * then owned); all others stay as they were. `result` may be null. */
AU_API au_status au_invoke(au_object* object, int32_t id, au_invoke_kind kind, au_value* arguments, size_t count,
                           const char* const* names, size_t name_count, au_value* result);
/* The same for a property that takes no arguments, for hosts to which each argument of a call is work. Since 1.2. */
AU_API au_status au_get(au_object* object, int32_t id, au_value* result);
/* The same by name, without named arguments. */
AU_API au_status au_call(au_object* object, const char* member, au_invoke_kind kind, au_value* arguments, size_t count,
                         au_value* result);

/* ---- Classes ---- */

/* The name of an object's class: its library, a point, the class ("Library.Reader"), the same pointer for all objects
 * of the class for as long as the process lives. Null for an object of a host, whose class has no name here, and for
 * what is no live object. Since 1.1. */
AU_API const char* au_class_name(au_object* object);
/* The surface of an object's class as JSON text. Objects of hosts have none: error 438. */
AU_API au_status au_describe(au_object* object, au_value* json);
/* The index of a collection's first item: 0 or 1. A collection has Count, and Item as its default member; error 438 for
 * every other object. Since 1.1. */
AU_API au_status au_first_item(au_object* object, int32_t* index);
/* The surfaces of the loaded libraries: the class at a place from 0 on, first those that au_create_object makes, then
 * those that members hand out. Its JSON text is that of au_describe. Error 9 after the last. Since 1.1. */
AU_API au_status au_class_at(size_t place, au_value* json);

/* ---- Arrays ---- */

typedef struct au_bound {
  int32_t lower;
  int32_t count;
} au_bound;

/* An array of Empty elements; `element` is the declared kind, AU_EMPTY for any. */
AU_API au_status au_make_array(au_value* value, au_kind element, const au_bound* bounds, size_t dimensions);
/* Dimensions, at most `room` bounds, and the number of elements. Any pointer may be null. */
AU_API au_status au_array_shape(const au_value* array, size_t* dimensions, au_bound* bounds, size_t room,
                                size_t* count);
/* Elements counted from 0 with the first index running fastest. Error 9 after the last. */
AU_API au_status au_array_get(const au_value* array, size_t place, au_value* element);
AU_API au_status au_array_put(au_value* array, size_t place, const au_value* element);
/* Many elements at once: `count` of them from `first`, `stride` apart. Numbers, Booleans and dates into `numbers`
 * (others are 0), every element's kind into `kinds`. Either may be null. */
AU_API au_status au_array_numbers(const au_value* array, size_t first, size_t stride, size_t count, double* numbers,
                                  uint8_t* kinds);
/* The texts of those elements, one after the other, and their lengths (0 for what is no text). */
AU_API au_status au_array_texts(const au_value* array, size_t first, size_t stride, size_t count, au_value* joined,
                                size_t* lengths);

/* ---- Events ---- */

/* Called for every event of an object. The arguments belong to the library. A failure does not keep the event from the
 * other sinks. */
typedef au_status (*au_event_sink)(void* host, int32_t event, const char* name, const au_value* arguments,
                                   size_t count);
/* A cookie for au_unadvise. Error 445 when the object raises no events. */
AU_API au_status au_advise(au_object* object, au_event_sink sink, void* host, int32_t* cookie);
/* Error 5 for a cookie that is not connected. */
AU_API au_status au_unadvise(au_object* object, int32_t cookie);

/* ---- Objects of the host ---- */

/* How the library calls an object that the host implements. Arguments belong to the library; to write one back, clear
 * it and store another value. A callback that fails calls au_raise and returns AU_RAISED. */
typedef struct au_host_class {
  uint32_t version;                                                                /* AU_ABI_VERSION */
  au_status (*get_id)(void* host, const char* member, size_t length, int32_t* id); /* AU_RAISED when there is none */
  au_status (*invoke)(void* host, int32_t id, au_invoke_kind kind, au_value* arguments, size_t count,
                      const char* const* names, size_t name_count, au_value* result);
  void (*destroy)(void* host); /* the last count is gone; may be null */
} au_host_class;

/* The table must outlive the object. The caller owns one count. */
AU_API au_status au_create_host_object(const au_host_class* table, void* host, au_object** object);
/* The `host` that an object was created with by this table; null for every other object. */
AU_API void* au_host_of(const au_host_class* table, au_object* object);
/* Sets the error of the callback that is running. Null texts are empty. */
AU_API void au_raise(int32_t number, const char* description, const char* source);

/* Called by long loops, so that the host stays responsive. Anything but 0 ends the loop with error 18. Null takes the
 * hook out. There is one hook for the process. It runs on each thread whose loop yields, on several at once when
 * several do, and may still be running on another thread when this returns: `host` must outlive that. */
typedef int (*au_yield_hook)(void* host);
AU_API void au_set_yield_hook(au_yield_hook hook, void* host);
/* For hooks that cost more than the rows they interrupt: on each thread the hook runs once in so many milliseconds,
 * with 0, the default, at every yield. It runs at the next yield of the calling thread in any case. */
AU_API void au_set_yield_interval(int32_t milliseconds);

#ifdef __cplusplus
}
#endif

#endif
