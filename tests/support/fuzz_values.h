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
