#include "Support/ScriptedContent.h"

#include "Support/CallScript.h"

namespace tessel::test {

ScriptedContent::ScriptedContent(std::optional<NativeWindowHandle> background)
    : background_(background)
{}

ScriptedContent::~ScriptedContent()
{
    CallScript::current().receive("content.end()");
}

void ScriptedContent::windowWillShow()
{
    CallScript::current().receive("content.windowWillShow()");
}

void ScriptedContent::windowDidClose()
{
    CallScript::current().receive("content.windowDidClose()");
}

} // namespace tessel::test
