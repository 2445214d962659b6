#include "vdxf/application.hpp"

#include "vdxf/convert_command.hpp"
#include "vdxf/diff_command.hpp"
#include "vdxf/dump_command.hpp"
#include "vdxf/info_command.hpp"
#include "vdxf/measure_command.hpp"
#include "vdxf/params_command.hpp"
#include "vdxf/suggest.hpp"
#include "veltrane/control/controller.hpp"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <exception>
#include <iostream>
#include <new>

namespace veltrane::tool {

namespace {

constexpr const char* kFooter =
    "'vdxf COMMAND --help' tells more, with examples.\n\n"
    "Examples:\n"
    "  vdxf info plan.dxf                     what is in it\n"
    "  vdxf convert plan.dxf plan.svg         a picture of true size\n"
    "  vdxf convert plan.dxf old.dxf --dxf-version R12\n"
    "  vdxf diff old.dxf new.dxf              what changed\n\n"
    "Results go to standard output, narration to standard error.\n"
    "Exit codes: 0 done, 1 failed (diff: the drawings differ), 2 wrong usage,\n"
    "            3 input unreadable, 4 something was lost and --strict was given.";

class Application {
public:
    Application() : parser_("Reads DXF drawings, shows what is in them and converts them.", "vdxf") {
        parser_.set_version_flag("--version", std::string("vdxf ") + VDXF_VERSION, "Show the version");
        parser_.set_help_flag("-h,--help", "Show this help");
        parser_.require_subcommand(1);
        parser_.footer(kFooter);
        commands_ = {declare_info(parser_),    declare_measure(parser_), declare_dump(parser_),
                     declare_convert(parser_), declare_diff(parser_),    declare_params(parser_)};
        for (const Command& command : commands_) command.parser->allow_extras();
    }

    ExitCode run(std::vector<std::string> arguments) {
        take_help_word(arguments);
        check_command(arguments);
        std::reverse(arguments.begin(), arguments.end());  // as the parser wants them
        try {
            parser_.parse(arguments);
        } catch (const CLI::Success& wanted) {  // help or version
            return static_cast<ExitCode>(parser_.exit(wanted));
        } catch (const CLI::ParseError& error) {
            check_extras();
            refuse(sentence(error.what()));
        }
        check_extras();
        const Command& command = *chosen();
        apply_settings(command.common());
        Console console(command.common().detail());
        const ExitCode code = command.run(console);
        console.finish();
        return code;
    }

private:
    /// "vdxf help info" is what people try.
    static void take_help_word(std::vector<std::string>& arguments) {
        if (arguments.empty() || arguments.front() != "help") return;
        arguments.erase(arguments.begin());
        arguments.push_back("--help");
    }

    std::vector<std::string> command_names() const {
        std::vector<std::string> names;
        for (const Command& command : commands_) names.push_back(command.parser->get_name());
        return names;
    }

    void check_command(const std::vector<std::string>& arguments) const {
        const std::vector<std::string> names = command_names();
        const std::string known = "The commands are " + list_of(names) + ".";
        if (arguments.empty()) refuse("No command is given. " + known);
        const std::string& word = arguments.front();
        if (word == "-h" || word == "--help" || word == "--version") return;
        if (!word.empty() && word.front() == '-') {
            refuse("Options stand after the command, as in 'vdxf info FILE " + word + "'. " + known);
        }
        if (std::find(names.begin(), names.end(), word) != names.end()) return;
        refuse("There is no command \"" + word + "\"." + did_you_mean(word, names) + " " + known);
    }

    const Command* chosen() const {
        const auto found = std::find_if(commands_.begin(), commands_.end(),
                                        [](const Command& command) { return command.parser->parsed(); });
        return found == commands_.end() ? nullptr : &*found;
    }

    /// Arguments that the sub-command does not know.
    void check_extras() const {
        const Command* command = chosen();
        if (!command) return;
        const std::vector<std::string> extras = command->parser->remaining();
        if (extras.empty()) return;
        const std::string& first = extras.front();
        if (first.size() < 2 || first.front() != '-') {
            refuse("\"" + first + "\" is one argument too many.");
        }
        refuse("There is no option " + first + "." + did_you_mean(first, option_names(*command->parser)));
    }

    static std::vector<std::string> option_names(const CLI::App& parser) {
        std::vector<std::string> names;
        for (const CLI::Option* option : parser.get_options()) {
            for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
        }
        return names;
    }

    static std::string sentence(std::string text) {
        while (!text.empty() && (text.back() == '\n' || text.back() == '.')) text.pop_back();
        return !text.empty() && text.back() == '?' ? text : text + ".";
    }

    [[noreturn]] void refuse(const std::string& message) const {
        const Command* command = chosen();
        const std::string name = command ? command->parser->get_name() + " " : "";
        throw Failure(ExitCode::WrongUsage, message + "\n'vdxf " + name + "--help' tells how it is used.");
    }

    CLI::App parser_;
    std::vector<Command> commands_;
};

}  // namespace

int run(std::vector<std::string> arguments) {
    ExitCode code = ExitCode::Failed;
    try {
        DxfControl_Controller::Init();  // the parameters belong to the norm
        code = Application().run(std::move(arguments));
    } catch (const Failure& failure) {
        complain(failure.what());
        code = failure.code();
    } catch (const std::bad_alloc&) {
        complain("There is not enough memory.");
    } catch (const std::exception& error) {
        complain(error.what());
    }
    return static_cast<int>(code);
}

}  // namespace veltrane::tool
