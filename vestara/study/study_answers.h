#pragma once

#include <vector>

#include "automation/ref.h"
#include "records/recordset.h"
#include "vestara/study/figures.h"

// Figures as record sets, a row each: what Study answers. What does not exist is Null.

namespace vestara::study {

automation::Ref<records::RecordSet> as_records(const std::vector<Drawing>& rows);
automation::Ref<records::RecordSet> as_records(const std::vector<FoundDrawing>& rows);
automation::Ref<records::RecordSet> as_records(const std::vector<NumberFigures>& rows);
automation::Ref<records::RecordSet> as_records(const std::vector<GroupFigures>& rows);
automation::Ref<records::RecordSet> as_records(const std::vector<SetFigures>& rows);
automation::Ref<records::RecordSet> as_records(const std::vector<Gap>& rows);
automation::Ref<records::RecordSet> as_records(const std::vector<FairnessTest>& rows);
automation::Ref<records::RecordSet> as_records(const std::vector<BetOdds>& rows);

}  // namespace vestara::study
