#include "tests/attacks/attack_texts.h"

#include <vector>

namespace attacks {
namespace {

using namespace std::string_literals;
using Pieces = std::vector<std::string>;

const Pieces marks{"'",  "''", "\"", "`",  "[", "]",  "(",  ")",  ",",  ";",  ".",  "=",  "+",    "-", "*", "/",  "||",
                   "::", ":",  "@",  "@@", "?", "?1", "$1", ":a", "$x", "@x", ":=", "\\", "\\\\", "{", "}", "<>", "%"};
const Pieces comments{"--",        "-- ",  "--\n",    "--\r",        "#",   "# ", "#\n", "/*",     "*/",    "/*!",
                      "/*!50000 ", "/*M!", "/* x */", "/* /* */ */", "/*/", "\n", "\r",  "-- '\n", "# '\n", "/*'*/"};
const Pieces values{"1",      "5",          "-5",         "90",   "1.5",     "1e5",          "0x41",     "x'41'",
                    "b'1'",   "N'a'",       "NULL",       "'a'",  "'it''s'", "'2005-02-09'", "$$a$$",    "$a$'$a$",
                    "E'\\''", "U&'\\0061'", "\"a\"",      "`a`",  "[a]",     "dtEstr",       "estr1",    "ruota",
                    "1)",     "(1",         "1) OR (1=1", "'BA'", "BA",      "5,12,33",      "U&\"id\"", "_utf8'a'"};
const Pieces clauses{"SELECT ",
                     "SELECT 1 ",
                     " UNION ALL SELECT 1 ",
                     " FROM storico ",
                     " WHERE 1=1 ",
                     " OR 1=1 ",
                     " LIKE '%' ",
                     " INTO OUTFILE '%F' ",
                     " INTO DUMPFILE '%F' ",
                     " INTO @x ",
                     " INTO outside ",
                     " FOR UPDATE ",
                     " FOR SHARE ",
                     " LOCK IN SHARE MODE ",
                     " PROCEDURE analyse() ",
                     " LIMIT 1 ",
                     " ORDER BY dtEstr ",
                     " ORDER BY count(*) ",
                     " GROUP BY 1 ",
                     " GROUP BY ruota ",
                     "WITH x AS (",
                     " DELETE FROM storico ",
                     " UPDATE storico SET estr1=9 ",
                     " INSERT INTO storico(estr1)VALUES(1) ",
                     " RETURNING 1 ",
                     ";DROP TABLE storico;",
                     " CREATE TABLE outside(i int) ",
                     " VACUUM INTO '%F' ",
                     " ATTACH '%F' AS x ",
                     " COPY storico TO '%F' ",
                     " COMMIT ",
                     ";COMMIT;",
                     " ROLLBACK ",
                     " SET SESSION sql_mode='' ",
                     " PRAGMA user_version=7 ",
                     " FROM pragma_optimize ",
                     "VALUES(1)",
                     " AS ",
                     " NOT "};
const Pieces functions{"set_config('default_transaction_read_only','off',false)",
                       "\"set_config\"('work_mem','1MB',false)",
                       "setval('storico_id_seq',2000000000)",
                       "nextval('storico_id_seq')",
                       "lo_create(0)",
                       "\"lo_create\"(0)::int",
                       "lo_export(1,'%F')",
                       "pg_read_file('%R')",
                       "pg_advisory_lock(7)",
                       "pg_try_advisory_lock(7)",
                       "query_to_xml('SELECT lo_create(0)',true,true,'')",
                       "load_file('%R')",
                       "get_lock('h',0)",
                       "sleep(0)",
                       "`get_lock`('h',0)",
                       "benchmark(1,1)",
                       "last_insert_id(77)",
                       "load_extension('x')",
                       "fts3_tokenizer('simple')",
                       "\"fts3_tokenizer\"('simple',x'41')",
                       "writefile('%F','x')",
                       "readfile('%R')",
                       "count(*)",
                       "max(estr1)",
                       "random()",
                       "length('a')",
                       "ARRAY[1]",
                       "ARRAY[lo_create(0)]",
                       "json('{}')"};
const Pieces bytes{"\xE8"s, "è"s,  "\xC3"s, "\xBF\x27"s, "\xEF\xBB\xBF"s,     "\xC2\xA0"s, "ʼ"s, "＇"s, "\0"s, "\x01"s,
                   "\x1A"s, "\t"s, "\x0B"s, " "s,        "\xF0\x9F\x8E\xB2"s, "\xFF"s};

const std::string& piece(testing_support::Random& random) {
  switch (random.below(16)) {
    case 0:
      return random.pick(bytes);
    case 1:
    case 2:
      return random.pick(comments);
    case 3:
    case 4:
    case 5:
      return random.pick(marks);
    case 6:
    case 7:
    case 8:
      return random.pick(clauses);
    case 9:
    case 10:
      return random.pick(functions);
    default:
      return random.pick(values);
  }
}

}  // namespace

std::string attack_text(testing_support::Random& random) {
  if (random.one_in(50)) return random.text(40);
  std::string text;
  for (size_t pieces = 1 + random.below(8); pieces > 0; --pieces) {
    text += piece(random);
    if (random.one_in(3)) text += " ";
  }
  return text;
}

}  // namespace attacks
