#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace testing_support {

/// What random calls pass: values that mean something to some member, and values that should mean nothing to any.
inline const std::vector<std::string> fuzz_texts{
    "",
    " ",
    "5,12,33",
    "53",
    "BA",
    "BA,NA",
    "VE",
    "15/11/2026",
    "2005-02-09",
    "31/02/2001",
    "True",
    "-1",
    "1e308",
    "99999999999",
    "O'Hara\\x",
    "sqlite::memory:",
    "SELECT 1",
    "storico",
    "estr1",
    "dtEstr",
    "DELETE FROM storico",
    "SELECT * FROM storico ORDER BY dtEstr",
    "INSERT INTO "
    "storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES(1,'2005-02-09','BA',1,2,3,4,5)",
    "tRicerche",
    "idRicerca",
    "update.txt",
    "nowhere/update.txt",
    "\xff\xfe",
    "s2.numeriTrovati",
    "Index"};

/// A few draws, so that searches find something.
inline const std::string fuzz_draws =
    "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES"
    "(16,'2005-02-05','BA',5,12,33,41,90),(16,'2005-02-05','VE',1,2,3,4,5),(17,'2005-02-09','BA',12,5,77,8,53),"
    "(17,'2005-02-09','VE',53,31,88,28,77),(18,'2005-02-12','BA',5,12,53,61,2),(18,'2005-02-12','VE',90,5,12,33,1)";

inline const std::vector<int32_t> fuzz_numbers{0,  1,     2,     5,  11,     12,         13,
                                               90, 32767, 32768, -1, -32769, 2147483647, -2147483647 - 1};

inline const std::vector<double> fuzz_reals{0,
                                            1.5,
                                            -1.5,
                                            38392,
                                            1e10,
                                            -1e300,
                                            std::numeric_limits<double>::infinity(),
                                            std::numeric_limits<double>::quiet_NaN()};

}  // namespace testing_support
