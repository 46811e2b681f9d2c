#include "automation/registration.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "automation/error.h"
#include "automation/registry.h"
#include "automation/shared_object.h"
#include "tests/support/temporary_folder.h"

// Where classes are found that this program linked nothing of.

namespace automation {
namespace {

namespace fs = std::filesystem;

/// An environment variable for the time of one test.
class Setting {
 public:
  Setting(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    setenv(name, value.c_str(), 1);
  }
  ~Setting() { before_.empty() ? unsetenv(name_) : setenv(name_, before_.c_str(), 1); }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

 private:
  const char* name_;
  std::string before_;
};

class Registration : public testing::Test {
 protected:
  /// A class file and the (empty) library that it names.
  std::string register_class_file(const fs::path& folder, const std::string& identifier) {
    fs::create_directories(folder);
    const std::string library = folder_.file(identifier + ".so", "");
    std::ofstream(folder / (identifier + ".class")) << "identifier=x\nlibrary=" << library << "\n";
    return library;
  }

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

TEST_F(Registration, TheLibraryFolderOfTheEnvironmentGoesFirst) {
  register_class_file(folder_.path() / "data/automation-classes", "some.cthing");
  folder_.file("libsome.so.1", "");
  const Setting folder("VESTARA_LIBRARY_DIR", folder_.path().string());
  EXPECT_EQ(libraries_for("Some.cThing").front(), folder_.path_to("libsome.so.1"));
}

TEST_F(Registration, AnIdentifierIsNoPath) {
  for (const char* identifier : {"", "..", "../etc/passwd", "a/b", ".hidden", "a b"})
    EXPECT_TRUE(libraries_for(identifier).empty()) << identifier;
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
  const auto known = loaded_classes();
  ASSERT_FALSE(known.empty());
  const void* inside = reinterpret_cast<const void*>(known[0].create);

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
