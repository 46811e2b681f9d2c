/* A host in C. It knows no header of the classes: it creates them by name, calls members by name, listens to events,
 * walks a record set, and at the end is the database itself. Every step says what it expects and stops when it is not
 * so.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "automation/c_abi/automation.h"

static void stop(const char* step) {
  const au_error error = au_last_error();
  fprintf(stderr, "%s: %d %s\n", step, (int)error.number, error.description);
  exit(1);
}

static void require(au_status status, const char* step) {
  if (status != AU_OK) stop(step);
}

static void expect(int holds, const char* step) {
  if (!holds) {
    fprintf(stderr, "not as expected: %s\n", step);
    exit(1);
  }
}

/* Values that borrow: they point to memory of this program and need no au_clear. */
static au_value text(const char* bytes) {
  au_value value = {AU_TEXT, 0, {0}};
  value.as.text.bytes = bytes;
  value.as.text.length = strlen(bytes);
  return value;
}

static au_value number(int32_t n) {
  au_value value = {AU_LONG, 0, {0}};
  value.as.number = n;
  return value;
}

static au_value object_value(au_object* object) {
  au_value value = {AU_OBJECT, 0, {0}};
  value.as.object = object;
  return value;
}

/* --- Calls --- */

static int32_t get_number(au_object* object, const char* member) {
  au_value result = {0};
  require(au_call(object, member, AU_GET, NULL, 0, &result), member);
  expect(result.kind == AU_LONG, member);
  return result.as.number;
}

/* A field of the current row: recordset.Fields(name).Value, where Value is the default member, id 0. */
static au_value get_field(au_object* rows, const char* name) {
  au_value argument = text(name);
  au_value field = {0};
  au_value value = {0};
  require(au_call(rows, "Fields", AU_GET, &argument, 1, &field), "Fields");
  require(au_invoke(field.as.object, 0, AU_GET, NULL, 0, NULL, 0, &value), "Value");
  au_clear(&field);
  return value;
}

static void fill_archive(au_object* connector) {
  au_value url = text("sqlite::memory:");
  au_value insert = text(
      "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES"
      "(17,'2005-02-09','VE',53,1,2,3,4),(16,'2005-02-05','VE',7,8,53,9,10)");
  au_value result = {0};
  require(au_call(connector, "Open", AU_METHOD, &url, 1, &result), "Open");
  expect(result.kind == AU_BOOLEAN && result.as.number == 1, "Open gives True");
  require(au_call(connector, "CreateSchema", AU_METHOD, NULL, 0, &result), "CreateSchema");
  require(au_call(connector, "ExecuteSql", AU_METHOD, &insert, 1, &result), "ExecuteSql");
  expect(result.as.number == 1, "ExecuteSql gives True");
}

/* Named arguments: the last ones, with their names beside them. What is left out has its default. */
static void search_with_names(au_object* lotto) {
  static const char* const names[] = {"sRuote", "combinazioneTipo"};
  int32_t id = 0;
  au_value arguments[3] = {text("53"), text("VE"), number(1)};
  au_value rows = {0};
  au_value atEnd = {0};
  int draws = 0;
  require(au_get_id(lotto, "loadlottoestr", &id), "names are found in any case");
  require(au_invoke(lotto, id, AU_METHOD, arguments, 3, names, 2, &rows), "LoadLottoEstr");
  expect(rows.kind == AU_OBJECT && rows.as.object != NULL, "a record set comes back");
  expect(get_number(lotto, "Ambate") == 2, "two hits");

  for (;;) {
    au_value date;
    require(au_call(rows.as.object, "EOF", AU_GET, NULL, 0, &atEnd), "EOF");
    if (atEnd.as.number != 0) break;
    date = get_field(rows.as.object, "dtEstr");
    expect(date.kind == AU_DATE, "a date is a date");
    if (draws == 0) expect(date.as.real == 38392.0, "the newest draw first");
    require(au_call(rows.as.object, "MoveNext", AU_METHOD, NULL, 0, NULL), "MoveNext");
    ++draws;
  }
  expect(draws == 2, "two draws");
  au_clear(&rows);
}

/* By reference: without numbers the search lists all draws, and says so in the caller's own value. */
static void search_with_write_back(au_object* lotto) {
  au_value arguments[6] = {
      text(""), number(0), text(""), {AU_MISSING, 0, {0}}, {AU_MISSING, 0, {0}}, {AU_BOOLEAN, 0, {0}}};
  require(au_call(lotto, "LoadLottoEstr", AU_METHOD, arguments, 6, NULL), "LoadLottoEstr");
  expect(arguments[5].kind == AU_BOOLEAN && arguments[5].as.number == 1, "bTutteLeEstrazioni came back True");
  expect(get_number(lotto, "ContaSortiteTrovate") == 2, "two draws listed");
}

/* --- Events --- */

struct heard {
  int starts, steps, ends;
  int32_t lastPosition, lastCount;
};

static au_status on_event(void* host, int32_t event, const char* name, const au_value* arguments, size_t count) {
  struct heard* heard = host;
  (void)event;
  if (strcmp(name, "LoadingStart") == 0) heard->starts++;
  if (strcmp(name, "LoadingEnd") == 0) heard->ends++;
  if (strcmp(name, "LoadingProgress") == 0 && count == 2) {
    heard->steps++;
    heard->lastPosition = arguments[0].as.number;
    heard->lastCount = arguments[1].as.number;
  }
  return AU_OK;
}

static void import_with_events(au_object* lotto, const char* path) {
  struct heard heard = {0, 0, 0, 0, 0};
  int32_t cookie = 0;
  au_value file = text(path);
  au_value one_row = number(1);
  au_value done = {0};
  FILE* out = fopen(path, "wb");
  expect(out != NULL, "the update file can be written");
  fputs("#1#07/01/1871#FI#15#71#18#64#81*#1#07/01/1871#MI#63#69#56#9#55", out);
  fclose(out);

  require(au_advise(lotto, on_event, &heard, &cookie), "advise");
  require(au_call(lotto, "FileUpdate", AU_PUT, &file, 1, NULL), "FileUpdate");
  require(au_call(lotto, "DbType", AU_PUT, &one_row, 1, NULL), "DbType");
  require(au_call(lotto, "UpdateTblStorico", AU_METHOD, NULL, 0, &done), "UpdateTblStorico");
  require(au_unadvise(lotto, cookie), "unadvise");
  remove(path);
  expect(done.as.number == 1, "the import is complete");
  expect(heard.starts == 1 && heard.steps == 2 && heard.ends == 1, "every event was heard");
  expect(heard.lastPosition == 1 && heard.lastCount == 1, "positions count from 0, the count is the last index");
}

/* --- This program as the connector --- */

enum { state_id = 1, open_id = 2, close_id = 3, execute_id = 4 };

struct own_connector {
  int statements;
  int destroyed;
};

static au_status own_get_id(void* host, const char* member, size_t length, int32_t* id) {
  static const struct {
    const char* name;
    int32_t id;
  } members[] = {{"ConnectionState", state_id},
                 {"OpenRecordset", open_id},
                 {"CloseRecordset", close_id},
                 {"ExecuteSql", execute_id}};
  size_t i;
  (void)host;
  for (i = 0; i < sizeof members / sizeof members[0]; ++i) {
    if (strlen(members[i].name) == length && strncmp(members[i].name, member, length) == 0) {
      *id = members[i].id;
      return AU_OK;
    }
  }
  return AU_RAISED;
}

static au_status own_invoke(void* host, int32_t id, au_invoke_kind kind, au_value* arguments, size_t count,
                            const char* const* names, size_t name_count, au_value* result) {
  struct own_connector* own = host;
  (void)kind, (void)arguments, (void)count, (void)names, (void)name_count;
  switch (id) {
    case state_id:
      *result = number(0);
      return AU_OK;
    case open_id:
      own->statements++;
      au_raise(-7, "the tape is torn", "example");
      return AU_RAISED;
    default:
      own->statements++;
      result->kind = AU_BOOLEAN; /* False: refused */
      return AU_OK;
  }
}

static void own_destroy(void* host) { ((struct own_connector*)host)->destroyed++; }

static const au_host_class own_class = {AU_ABI_VERSION, own_get_id, own_invoke, own_destroy};

static void be_the_connector(void) {
  struct own_connector own = {0, 0};
  au_object* connector = NULL;
  au_object* lotto = NULL;
  au_value argument;
  au_value count = {0};
  require(au_create_host_object(&own_class, &own, &connector), "host object");
  expect(au_host_of(&own_class, connector) == &own, "the host's own object is known again");
  require(au_create_object("Vestara.cLotto", &lotto), "second cLotto");
  argument = object_value(connector);
  require(au_call(lotto, "ActiveConnection", AU_PUTREF, &argument, 1, NULL), "ActiveConnection");
  require(au_call(lotto, "ContaEstrazioniStorico", AU_METHOD, NULL, 0, &count), "ContaEstrazioniStorico");
  expect(count.kind == AU_LONG && count.as.number == -1, "the raised error was trapped and logged");
  expect(own.statements == 1, "one statement was asked for");
  require(au_release(connector), "release");
  expect(own.destroyed == 0, "the library still holds it");
  require(au_release(lotto), "release");
  expect(own.destroyed == 1, "and let it go");
}

/* --- Misuse is a status, never a crash --- */

static void misuse(au_object* lotto) {
  au_value result = {0};
  au_value nonsense = {77, 0, {0}};
  au_object* object = NULL;
  expect(au_create_object(NULL, &object) == AU_BAD_ARGUMENT, "null identifier");
  expect(au_create_object("Vestara.cNothing", &object) == AU_RAISED && au_last_error().number == 429, "unknown class");
  expect(au_call(NULL, "DbType", AU_GET, NULL, 0, &result) == AU_BAD_HANDLE, "null object");
  expect(au_call(lotto, "Nothing", AU_GET, NULL, 0, &result) == AU_RAISED && au_last_error().number == 438,
         "no member");
  expect(au_call(lotto, "DbType", AU_PUT, NULL, 0, &result) == AU_RAISED && au_last_error().number == 449, "no value");
  expect(au_call(lotto, "DbType", AU_PUT, &nonsense, 1, &result) == AU_BAD_ARGUMENT, "a value of no kind");
  expect(au_call(lotto, "ActiveConnection", AU_GET, NULL, 0, &result) == AU_RAISED && au_last_error().number == 91,
         "error 91");
}

int main(void) {
  au_object* connector = NULL;
  au_object* lotto = NULL;
  au_value argument;
  expect(au_abi_version() == AU_ABI_VERSION, "header and library are of one version");
  require(au_create_object("Dorvane.DbConnector", &connector), "create the connector");
  require(au_create_object("vestara.clotto.1", &lotto), "names in any case, with their version");
  fill_archive(connector);
  argument = object_value(connector);
  require(au_call(lotto, "ActiveConnection", AU_PUTREF, &argument, 1, NULL), "ActiveConnection");

  search_with_names(lotto);
  search_with_write_back(lotto);
  import_with_events(lotto, "c-example-update.txt");
  misuse(lotto);
  be_the_connector();

  require(au_release(lotto), "release");
  require(au_release(connector), "release");
  puts("c example: ok");
  return 0;
}
