#include "automation/registration.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "automation/error.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "automation/system/shared_object.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/values.h"

// Where classes are found that this program linked nothing of.

namespace automation {
namespace {

namespace fs = std::filesystem;

/// An environment variable for the time of one test.
class Setting {
 public:
  /// No value takes the variable out.
  Setting(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    set(value);
  }
  ~Setting() { set(before_); }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

 private:
  void set(const std::optional<std::string>& value) const {
    value ? setenv(name_, value->c_str(), 1) : unsetenv(name_);
  }

  const char* name_;
  std::optional<std::string> before_;
};

class Registration : public testing::Test {
 protected:
  Registration() : mask_(umask(022)) {}
  ~Registration() override { umask(mask_); }

  /// A class file and the (empty) library that it names.
  std::string register_class_file(const fs::path& folder, const std::string& identifier) {
    fs::create_directories(folder);
    const std::string library = folder_.file(identifier + ".so", "");
    std::ofstream(folder / (identifier + ".class")) << "identifier=x\nlibrary=" << library << "\n";
    return library;
  }

  mode_t mask_;
  testing_support::TemporaryFolder folder_;
  Setting home_{"XDG_DATA_HOME", folder_.path_to("data")};
  Setting shared_{"XDG_DATA_DIRS", folder_.path_to("shared")};
};

TEST_F(Registration, ClassesAreFoundInTheUsersAndTheSystemsFolders) {
  const std::string user = register_class_file(folder_.path() / "data/automation-classes", "some.cthing");
  EXPECT_EQ(libraries_for("Some.cThing"), std::vector<std::string>{user});
  const std::string system = register_class_file(folder_.path() / "shared/automation-classes", "some.cother");
  EXPECT_EQ(libraries_for("Some.cOther"), std::vector<std::string>{system});
  const std::string first = register_class_file(folder_.path() / "mine", "some.cother");
  const Setting path("AUTOMATION_CLASS_PATH", folder_.path_to("mine"));
  EXPECT_EQ(libraries_for("Some.cOther").front(), first);
}

/// The work folder for the time of one test, where a class file lies that must not be found.
class WorkFolder {
 public:
  explicit WorkFolder(const fs::path& folder) : before_(fs::current_path()) { fs::current_path(folder); }
  ~WorkFolder() { fs::current_path(before_); }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

 private:
  fs::path before_;
};

TEST_F(Registration, NothingIsLookedForInTheCurrentFolder) {
  const fs::path work = folder_.path() / "work";
  for (const char* place : {"", "automation-classes", ".local/share/automation-classes", "named",
                            "named/automation-classes", "named/.local/share/automation-classes"})
    register_class_file(work / place, "some.cthing");
  const WorkFolder current(work);
  const struct {
    const char* variable;
    std::optional<std::string> value;
  } rows[] = {{"HOME", {}},
              {"HOME", ""},
              {"HOME", "."},
              {"HOME", "named"},
              {"XDG_DATA_HOME", ""},
              {"XDG_DATA_HOME", "."},
              {"XDG_DATA_HOME", "named"},
              {"XDG_DATA_DIRS", ""},
              {"XDG_DATA_DIRS", "."},
              {"XDG_DATA_DIRS", ":"},
              {"XDG_DATA_DIRS", "named:/nowhere"},
              {"XDG_DATA_DIRS", "/nowhere:"},
              {"AUTOMATION_CLASS_PATH", ""},
              {"AUTOMATION_CLASS_PATH", "."},
              {"AUTOMATION_CLASS_PATH", ":/nowhere"},
              {"AUTOMATION_CLASS_PATH", "/nowhere::/nowhere"},
              {"AUTOMATION_CLASS_PATH", "named"},
              {"AUTOMATION_CLASS_PATH", "../here/named"}};
  for (const auto& row : rows) {
    const Setting home("XDG_DATA_HOME", {});
    const Setting changed(row.variable, row.value);
    EXPECT_TRUE(libraries_for("Some.cThing").empty()) << row.variable << "=" << row.value.value_or("(unset)");
  }
}

TEST_F(Registration, WithoutAUsersFolderNothingIsRegistered) {
  const WorkFolder current(folder_.path());
  const Setting data("XDG_DATA_HOME", "relative");
  const Setting home("HOME", {});
  EXPECT_EQ(registration_folder(Scope::user), "");
  EXPECT_EQ(registration_folder(Scope::system), "/usr/local/share/automation-classes");
  const auto name_both = [](auto change) {
    try {
      change(reinterpret_cast<const void*>(&create_object), Scope::user);
      FAIL();
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), 76);
      EXPECT_NE(error.description().find("XDG_DATA_HOME or HOME"), std::string::npos) << error.description();
    }
  };
  name_both(register_library);
  name_both(unregister_library);
  EXPECT_FALSE(fs::exists("relative"));
}

/// Whose a class file and its folder are, and what others may do there.
struct Rights {
  const char* what;
  uid_t owner;
  mode_t folder;
  mode_t file;
  const char* refusal;  ///< what the sentence says, empty for a file that is taken
};

TEST_F(Registration, AClassFileThatOthersMayWriteIsRefused) {
  const uid_t me = geteuid();
  const Rights rows[] = {{"as it is written", me, 0755, 0644, ""},
                         {"read by its owner alone", me, 0700, 0400, ""},
                         {"file of a group", me, 0755, 0664, "some.cthing.class may be written by its group"},
                         {"file of everybody", me, 0755, 0646, "some.cthing.class may be written by everybody"},
                         {"folder of a group", me, 0775, 0644, "automation-classes may be written by its group"},
                         {"folder of everybody", me, 0757, 0644, "automation-classes may be written by everybody"},
                         {"everybody's, each keeps the own", me, 01777, 0644, "may be written by everybody"},
                         {"file of somebody else", 12345, 0755, 0644, "belongs to user number 12345"}};
  const fs::path folder = folder_.path() / "data/automation-classes";
  for (const Rights& row : rows) {
    SCOPED_TRACE(row.what);
    const std::string library = register_class_file(folder, "some.cthing");
    const fs::path file = folder / "some.cthing.class";
    if (row.owner != me && chown(file.c_str(), row.owner, static_cast<gid_t>(-1)) != 0) continue;  // root alone can
    ASSERT_EQ(chmod(file.c_str(), row.file), 0);
    ASSERT_EQ(chmod(folder.c_str(), row.folder), 0);
    const auto sentences = refused_class_files("Some.cThing");
    if (*row.refusal == '\0') {
      EXPECT_EQ(libraries_for("Some.cThing"), std::vector<std::string>{library});
      EXPECT_TRUE(sentences.empty());
    } else {
      EXPECT_TRUE(libraries_for("Some.cThing").empty());
      ASSERT_EQ(sentences.size(), 1U);
      EXPECT_NE(sentences[0].find(file.string()), std::string::npos) << sentences[0];
      EXPECT_NE(sentences[0].find(row.refusal), std::string::npos) << sentences[0];
    }
    fs::remove_all(folder);
  }
}

TEST_F(Registration, ALinkIsAsGoodAsWhereItLeads) {
  const std::string library = register_class_file(folder_.path() / "elsewhere", "some.cthing");
  const fs::path target = folder_.path() / "elsewhere/some.cthing.class";
  const fs::path link = folder_.path() / "data/automation-classes/some.cthing.class";
  fs::create_directories(link.parent_path());
  fs::create_symlink(target, link);
  EXPECT_EQ(libraries_for("Some.cThing"), std::vector<std::string>{library});
  ASSERT_EQ(chmod(target.parent_path().c_str(), 0777), 0);
  EXPECT_TRUE(libraries_for("Some.cThing").empty());
  EXPECT_EQ(refused_class_files("Some.cThing").size(), 1U);
  // Whoever may write where the link lies can put another in its place.
  ASSERT_EQ(chmod(target.parent_path().c_str(), 0755), 0);
  EXPECT_EQ(libraries_for("Some.cThing"), std::vector<std::string>{library});
  ASSERT_EQ(chmod(link.parent_path().c_str(), 0777), 0);
  EXPECT_TRUE(libraries_for("Some.cThing").empty());
  EXPECT_EQ(refused_class_files("Some.cThing").size(), 1U);
}

TEST_F(Registration, TheUsersFolderLiesAtHomeUnlessAVariableNamesAnother) {
  const struct {
    const char *data, *home, *folder;
  } rows[] = {{"/d", "/h", "/d/automation-classes"},
              {"", "/h", "/h/.local/share/automation-classes"},
              {"relative", "/h", "/h/.local/share/automation-classes"},
              {"", "relative", ""}};
  for (const auto& row : rows) {
    const Setting data("XDG_DATA_HOME", row.data);
    const Setting home("HOME", row.home);
    EXPECT_EQ(registration_folder(Scope::user), row.folder) << row.data << " " << row.home;
  }
}

TEST_F(Registration, TheSystemsFoldersAreTheUsualOnesUnlessAVariableNamesOthers) {
  const std::string usual = "/usr/local/share/automation-classes, /usr/share/automation-classes, ";
  const struct {
    std::optional<std::string> value;
    std::string places;
  } rows[] = {{std::nullopt, usual},
              {"", usual},
              {":", usual},
              {"relative:./other", usual},
              {"/a", "/a/automation-classes, "},
              {"/a:relative:/b", "/a/automation-classes, /b/automation-classes, "}};
  for (const auto& row : rows) {
    const Setting shared("XDG_DATA_DIRS", row.value);
    const std::string user = folder_.path_to("data/automation-classes") + ", ";
    EXPECT_EQ(searched_places().rfind(user + row.places, 0), 0U)
        << row.value.value_or("(unset)") << ": " << searched_places();
  }
}

TEST_F(Registration, ARefusedClassFileIsNamedByTheErrorOfItsClass) {
  register_class_file(folder_.path() / "data/automation-classes", "some.cthing");
  const std::string file = folder_.path_to("data/automation-classes/some.cthing.class");
  ASSERT_EQ(chmod(file.c_str(), 0666), 0);
  try {
    create_object("Some.cThing");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), 429);
    EXPECT_NE(error.description().find(file + " may be written by everybody; only its owner may"), std::string::npos)
        << error.description();
  }
}

Ref<Object> nothing_yet() { return {}; }

constexpr ClassDescription own_class{.library = "Tests", .name = "cOwn"};

/// An address in this program, which then has a class to register.
const void* class_of_this_program() {
  register_class({&own_class, nothing_yet});
  return reinterpret_cast<const void*>(&nothing_yet);
}

TEST_F(Registration, AnIdentifierMayNameItsVersion) {
  class_of_this_program();
  const struct {
    const char* identifier;
    int32_t error;
  } rows[] = {{"Tests.cOwn", 0},    {"tests.COWN", 0},       {"Tests.cOwn.1", 0}, {"Tests.cOwn.2", 429},
              {"Tests.cOwn.", 429}, {"Tests.cOwn.1.1", 429}, {".1", 429}};
  for (const auto& row : rows)
    EXPECT_EQ(testing_support::error_of([&] { create_object(row.identifier); }), row.error) << row.identifier;
}

TEST_F(Registration, NothingIsRegisteredWhereOthersMayWrite) {
  const void* inside = class_of_this_program();
  const fs::path folder = registration_folder(Scope::user);
  fs::create_directories(folder);
  ASSERT_EQ(chmod(folder.c_str(), 0777), 0);
  EXPECT_EQ(testing_support::error_of([&] { register_library(inside, Scope::user); }), 70);
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(Registration, ClassFilesAreTheUsersOwnWhateverTheMaskSays) {
  const void* inside = class_of_this_program();
  for (const mode_t mask : {0000, 0002, 0077}) {
    const mode_t before = umask(mask);
    register_library(inside, Scope::user);
    umask(before);
    const fs::path folder = registration_folder(Scope::user);
    EXPECT_EQ(static_cast<int>(fs::status(folder).permissions()), 0755) << mask;
    EXPECT_EQ(static_cast<int>(fs::status(folder / "tests.cown.class").permissions()), 0644) << mask;
    EXPECT_TRUE(refused_class_files("Tests.cOwn").empty());
    fs::remove_all(folder_.path() / "data");
  }
}

TEST_F(Registration, AClassFileIsReplacedWhole) {
  const void* inside = class_of_this_program();
  const fs::path folder = registration_folder(Scope::user);
  register_class_file(folder, "tests.cown");
  const fs::path old_text = folder / "old";
  fs::create_hard_link(folder / "tests.cown.class", old_text);
  const std::string before = testing_support::bytes_of(old_text);
  register_library(inside, Scope::user);
  EXPECT_EQ(testing_support::bytes_of(old_text), before);
  EXPECT_NE(testing_support::bytes_of(folder / "tests.cown.class"), before);
}

TEST_F(Registration, TheLibraryFolderOfTheEnvironmentGoesFirst) {
  register_class_file(folder_.path() / "data/automation-classes", "some.cthing");
  folder_.file("libsome.so.1", "");
  const Setting folder("VESTARA_LIBRARY_DIR", folder_.path().string());
  EXPECT_EQ(libraries_for("Some.cThing").front(), folder_.path_to("libsome.so.1"));
  EXPECT_EQ(searched_places().rfind(folder_.path().string() + ", ", 0), 0U) << searched_places();
  const WorkFolder current(folder_.path());
  const Setting relative("VESTARA_LIBRARY_DIR", ".");
  EXPECT_EQ(fs::canonical(libraries_for("Some.cThing").front()), fs::canonical(folder_.path_to("libsome.so.1")));
}

TEST_F(Registration, AnIdentifierIsNoPath) {
  register_class_file(folder_.path() / "data/automation-classes", ".vestara");
  register_class_file(folder_.path() / "data", "thing");
  for (const char* identifier : {"", "..", "../etc/passwd", "../thing", "a/b", ".hidden", ".Vestara", "a b"}) {
    EXPECT_TRUE(libraries_for(identifier).empty()) << identifier;
    EXPECT_TRUE(refused_class_files(identifier).empty()) << identifier;
  }
}

TEST_F(Registration, AClassIsKnownOnce) {
  const auto count = [] {
    const auto& classes = loaded_classes();
    return std::count_if(classes.begin(), classes.end(),
                         [](const RegisteredClass& entry) { return entry.description->name == "cTwice"; });
  };
  static constexpr ClassDescription twice{.library = "Tests", .name = "cTwice"};
  static constexpr ClassDescription in_capitals{.library = "tests", .name = "CTWICE"};
  register_class({&twice, nothing_yet});
  EXPECT_EQ(count(), 1);
  for (const ClassDescription* const again : {&twice, &in_capitals}) register_class({again, nothing_yet});
  EXPECT_EQ(count(), 1);
}

TEST_F(Registration, ALibraryThatIsGoneIsPassedOver) {
  fs::remove(register_class_file(folder_.path() / "data/automation-classes", "some.cthing"));
  EXPECT_TRUE(libraries_for("Some.cThing").empty());
}

TEST_F(Registration, AMissingClassIsError429AndNamesThePlaces) {
  for (const char* identifier : {"Some.cThing", "cLotto", ""}) {
    try {
      create_object(identifier);
      FAIL() << identifier;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), 429);
      EXPECT_NE(error.description().find(folder_.path_to("data")), std::string::npos) << error.description();
    }
  }
}

TEST_F(Registration, ALibraryThatDoesNotLoadSaysWhy) {
  register_class_file(folder_.path() / "data/automation-classes", "some.cthing");
  try {
    create_object("Some.cThing");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_NE(error.description().find("file too short"), std::string::npos) << error.description();
  }
}

TEST_F(Registration, WritesFindsLoadsAndRemoves) {
  // This program linked nothing of Vestara: the first object comes by the library beside the component model.
  const Ref<Object> lotto = create_object("Vestara.cLotto");
  ASSERT_TRUE(lotto);
  const std::string library = libraries_for("Vestara.cLotto").at(0);
  const auto& known = loaded_classes();
  const auto entry = std::find_if(known.begin(), known.end(), [](const RegisteredClass& each) {
    return each.description->identifier() == "Vestara.cLotto";
  });
  ASSERT_NE(entry, known.end());
  const void* inside = reinterpret_cast<const void*>(entry->create);

  const auto written = register_library(inside, Scope::user);
  ASSERT_FALSE(written.empty());
  EXPECT_EQ(written[0], "Vestara.cLotto");
  const fs::path file = fs::path(registration_folder(Scope::user)) / "vestara.clotto.class";
  EXPECT_TRUE(fs::exists(file));
  EXPECT_EQ(fs::canonical(libraries_for("vestara.CLOTTO").at(0)), fs::canonical(library));
  EXPECT_EQ(unregister_library(inside, Scope::user), written);
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(unregister_library(inside, Scope::user), written);
}

TEST_F(Registration, ALibraryRegistersItselfByItsEntryPoints) {
  ASSERT_TRUE(create_object("Dorvane.DbConnector"));
  void* library = dlopen(libraries_for("Dorvane.DbConnector").at(0).c_str(), RTLD_NOW);
  ASSERT_NE(library, nullptr);
  using EntryPoint = int32_t (*)(int32_t);
  const auto write = reinterpret_cast<EntryPoint>(dlsym(library, "automation_register_classes"));
  const auto remove = reinterpret_cast<EntryPoint>(dlsym(library, "automation_unregister_classes"));
  ASSERT_TRUE(write && remove);
  EXPECT_EQ(write(0), 0);
  const fs::path file = fs::path(registration_folder(Scope::user)) / "dorvane.dbconnector.class";
  EXPECT_TRUE(fs::exists(file));
  EXPECT_EQ(remove(0), 0);
  EXPECT_FALSE(fs::exists(file));
  dlclose(library);
}

}  // namespace
}  // namespace automation
