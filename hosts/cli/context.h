#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/output/output.h"
#include "hosts/cli/terminal/confirmation.h"
#include "hosts/cli/terminal/terminal.h"

namespace vestara::host {

/// What every command line may say, whatever the command.
struct Settings {
  std::string database;  ///< URL; empty for the usual archive
  OutputFormat format = OutputFormat::table;
  ColourChoice colour = ColourChoice::automatic;
};

/// What a command works with.
struct Context {
  const Settings& settings;
  std::istream& in;   ///< answers of the person at the terminal
  std::ostream& out;  ///< results
  std::ostream& err;  ///< everything else

  OutputStyle style() const { return {settings.format, wants_colour(settings.colour, out)}; }
  void show(const Report& report) const { write_report(out, report, style()); }
  /// Says a sentence after the program's name.
  void remark(const std::string& sentence) const { err << "vestara: " << sentence << "\n"; }
  /// See `vestara::host::require_consent`.
  void require_consent(Consent consent, const std::string& change) const;

  /// The URL of the archive that is meant.
  std::string url() const;
  /// Opens that archive, which must exist, to read it or to change it. Failure (database).
  ArchiveSession open_archive() const { return ArchiveSession::for_reading(settings.database); }
  /// The same, or begins a new one with its tables.
  ArchiveSession open_or_begin_archive() const { return ArchiveSession::for_import(settings.database); }
};

/// Failure (database) when the connector refused what the library asked of it, or when there is no answer: the library
/// itself answers with empty values then.
void require_answered(const ArchiveSession& session, bool has_answer = true);

}  // namespace vestara::host
