#include "cli/command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <cstring>

#include "cli/commands.h"
#include "cli/text.h"
#include "resources/version.h"

namespace {

constexpr char kDescription[] = "Kelvanstead schemes from the command line.";
constexpr char kExitCodes[] =
    "Exit codes:\n"
    "  0  done, nothing to report\n"
    "  1  check found damage (import then writes nothing), or diff or import --dry-run found differences\n"
    "  2  wrong usage\n"
    "  3  the file cannot be read or written, or is no scheme file\n"
    "  4  the shell is not installed, or there is no such scheme\n"
    "  5  no rights, the policy locks this user out, or the scheme is built in\n"
    "  6  not all of it could be done; there is a line for each part that could not\n"
    "\n"
    "SCHEME is the exact name of a scheme. \"ksm COMMAND --help\" tells of one command.\n"
    "--quiet and --wait go with every command.";

// The parser would make lists of "[a]" and "{}". It does not with this byte at their ends, which stands for
// itself there, too.
constexpr char kPlain = '\x1F';
constexpr char kListEnds[] = {']', '}', kPlain, '\0'};

std::string Marked(const std::string& argument) {
  return !argument.empty() && std::strchr(kListEnds, argument.back()) ? argument + kPlain : argument;
}

void Unmark(std::string& text) {
  if (!text.empty() && text.back() == kPlain) text.pop_back();
}

class CommandLine {
 public:
  CommandLine() : app_(kDescription, "ksm") {
    app_.require_subcommand(1);
    app_.set_version_flag("--version", "ksm " VERSION_TEXT);
    app_.add_flag("--quiet", options_.Quiet, "No progress and no confirmations");
    app_.add_option("--wait", options_.Wait, "Seconds to wait for another ksm that is changing this machine")
        ->type_name("SECONDS")
        ->capture_default_str();
    app_.footer(kExitCodes);
    app_.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app_.get_formatter()->label("REQUIRED", "(required)");
    AddSchemeCommands();
    AddFileCommands();
    AddAllocationCommands();
    AddHelperCommand();
  }

  ExitCode Run(const std::vector<std::string>& arguments, Output& output) {
    try {
      app_.parse(MarkedBackwards(arguments));
    } catch (const CLI::CallForHelp&) {
      output.PrintUtf8(app_.help());
      return ExitCode::kDone;
    } catch (const CLI::CallForVersion& version) {
      output.Print(version.what());
      return ExitCode::kDone;
    } catch (const CLI::ParseError& error) {
      TellUsage(arguments, error, output);
      return ExitCode::kUsage;
    }
    for (std::string* text : {&options_.File, &options_.Scheme, &options_.Backup, &options_.Owner})
      Unmark(*text);
    for (std::string& scheme : options_.Schemes)
      Unmark(scheme);
    return run_(options_, output);
  }

 private:
  // The parser takes the last argument first.
  static std::vector<std::string> MarkedBackwards(const std::vector<std::string>& arguments) {
    std::vector<std::string> marked;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
      marked.push_back(Marked(*argument));
    return marked;
  }

  CLI::App* Add(
      const char* name, const char* description, Command run, const std::function<void()>& check = [] {}) {
    CLI::App* command = app_.add_subcommand(name, description)->group("Commands");
    command->fallthrough();  // the options for every command may stand behind it
    command->allow_windows_style_options(false);
    command->callback([this, run, check] {
      check();
      run_ = run;
    });
    return command;
  }

  void TellUsage(const std::vector<std::string>& arguments, const CLI::ParseError& error, Output& output) {
    const std::vector<CLI::App*> commands = app_.get_subcommands();
    if (!commands.empty()) return output.Problem("ksm " + commands[0]->get_name(), error.what());
    constexpr char kList[] = "; \"ksm --help\" lists them";
    const bool isNamed = !arguments.empty() && arguments[0].rfind('-', 0) != 0;
    if (isNamed) return output.Problem(arguments[0], std::string("There is no such command") + kList);
    const bool isMissing = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
    output.Problem("ksm", isMissing ? std::string("A command is required") + kList : error.what());
  }

  // A script's variable that is not set must not pass for an option that was not given.
  static CLI::Option* Named(CLI::Option* option, const char* typeName) {
    return option->type_name(typeName)->check(
        [](const std::string& text) { return text.empty() ? "must not be empty" : ""; });
  }

  void AddJson(CLI::App* command) { command->add_flag("--json", options_.Json, "The same as JSON"); }
  void AddFile(CLI::App* command, const char* description) {
    Named(command->add_option("FILE", options_.File, description)->required(), "");
  }
  CLI::Option* AddSchemes(CLI::App* command, const char* description) {
    return command->add_option("SCHEME", options_.Schemes, description)->type_name("");
  }

  void AddSchemeCommands() {
    AddJson(Add("list", "The schemes of this machine", &ListSchemes));

    CLI::App* show = Add("show", "Everything that a scheme holds, in the words of the editor", &ShowScheme);
    show->add_option("SCHEME", options_.Scheme, "The scheme")->required()->type_name("");
    Named(show->add_option("--file", options_.File, "Show the scheme of a scheme file"), "FILE");
    AddJson(show);

    CLI::App* remove = Add("delete", "Delete schemes with their allocations", &DeleteSchemes);
    AddSchemes(remove, "The schemes; built-in ones are refused")->required();
  }

  void AddFileCommands() {
    CLI::App* save = Add("export", "Save schemes to a scheme file", &ExportFile);
    AddFile(save, "The file, which is replaced when the new one is whole");
    AddSchemes(save, "The schemes; all of them unless told otherwise");

    CLI::App* check = Add("check", "Whether every scheme of a file can be read whole", &CheckFile);
    AddFile(check, "The scheme file");
    AddJson(check);

    CLI::App* diff = Add("diff", "How the schemes of this machine differ from those of a file", &DiffFile);
    AddFile(diff, "The scheme file");
    AddSchemes(diff, "The schemes; all of them unless told otherwise");
    AddJson(diff);

    CLI::App* load = Add("import", "Load schemes from a scheme file", &ImportFile);
    AddFile(load, "The scheme file; refused as a whole where check finds damage");
    AddSchemes(load, "The schemes; all of the file unless told otherwise");
    load->add_flag("--dry-run", options_.DryRun, "Print what diff prints and write nothing");
    Named(load->add_option("--backup", options_.Backup,
                           "First save what is there; where that fails, the import does not begin"),
          "FILE");
    load->add_flag("--keep-built-in", options_.KeepBuiltIn, "Leave the schemes alone that are built in here");
    load->add_flag("--accept-damage", options_.AcceptDamage, "Load what can be read of a damaged file");
    load->add_flag("--no-verify", options_.NoVerify, "Do not read back what was written");
  }

  void AddAllocationCommands() {
    AddJson(Add("allocations", "Which scheme is allocated to whom", &ListAllocations));

    CLI::App* allocate = Add("allocate", "Allocate a scheme to a class, a user or a group", &AllocateScheme,
                             [this] { CheckAllocation(); });
    AddOwner(allocate, "--class", AllocationKind::kClass, "To the class");
    AddOwner(allocate, "--user", AllocationKind::kUser, "To the user");
    AddOwner(allocate, "--group", AllocationKind::kUserGroup, "To the group of users");
    Named(allocate->add_option("SCHEME", options_.Scheme, "The scheme"), "");
    allocate->add_flag("--clear", options_.Clear, "Take the allocation away");

    AddJson(Add("explain", "Which scheme the current user gets, and why", &ExplainScheme));
  }
  void AddOwner(CLI::App* command, const char* option, AllocationKind kind, const char* description) {
    const auto take = [this, kind](const std::string& name) {
      options_.Kind = kind;
      options_.Owner = name;
      ++owners_;
    };
    Named(command->add_option_function<std::string>(option, take, description), "NAME");
  }

  void CheckAllocation() const {
    if (owners_ != 1) throw CLI::ValidationError("Just one of --class, --user and --group is required");
    if (options_.Scheme.empty() != options_.Clear)
      throw CLI::ValidationError("Just one of SCHEME and --clear is required");
  }

  void AddHelperCommand() {
    CLI::App* helper = Add("helper", "Show or choose the on-screen helper", &ShowOrChooseHelper);
    Named(helper->add_option("NAME", options_.Helper, "Peedy, Merlin, Robby or Genie"), "");
  }

  CLI::App app_;
  Options options_;
  int owners_ = 0;  // of an allocation
  Command run_ = nullptr;
};

}  // namespace

ExitCode RunCommandLine(const std::vector<std::string>& arguments, Output& output) {
  return CommandLine().Run(arguments, output);
}
