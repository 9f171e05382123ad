#include "addin/search/ProcKindName.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/Json.h"
#include "cli/Output.h"
#include "cli/Session.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"

namespace quorvane::cli {

namespace {

void AppendProcedures(const workbench::Module& code, Json& json) {
  json.Key("Procedures").BeginArray();
  for (const workbench::Procedure& procedure : code.Procedures()) {
    json.BeginObject().Key("Name").Text(procedure.name).Key("Kind").Text(ProcKindName(procedure.kind));
    json.Key("StartLine").Number(procedure.startLine).Key("CountOfLines").Number(procedure.countOfLines).EndObject();
  }
  json.EndArray();
}

void AppendComponent(const workbench::Project& project, const workbench::Component& component, bool procedures,
                     Json& json) {
  const auto& code = component.TheModule();
  json.BeginObject();
  json.Key("Project").Text(project.Name()).Key("Component").Text(component.Name());
  json.Key("Type").Number(static_cast<std::int32_t>(component.Type())).Key("Path").Utf8(component.Path());
  json.Key("CountOfLines").Number(code ? code->CountOfLines() : 0);
  json.Key("CountOfDeclarationLines").Number(code ? code->CountOfDeclarationLines() : 0);
  if (procedures && code) AppendProcedures(*code, json);
  if (procedures && !code) json.Key("Procedures").BeginArray().EndArray();
  json.EndObject();
}

}  // namespace

int List(const Options& options) {
  Session session(options);
  session.CheckOutput(options);
  Output output(options.output);
  bool any = false;
  Json json;
  for (const auto& project : session.Host().Projects()) {
    for (const auto& component : project->Components()) {
      AppendComponent(*project, *component, options.procedures, json);
      output.Write(json.TakeLine());
      any = true;
    }
  }
  output.Finish();
  return any ? kStatusFound : kStatusNothing;
}

}  // namespace quorvane::cli
