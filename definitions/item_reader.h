// Reads one item block of a page or bag definition.
#pragma once

namespace qen {

class CGUIParser;
class ICGUIObject;

// Reads behind the widget's name, up to the block's "}" or the end of the text, and applies what it reads to the
// widget. Null reads the block without effect.
void ReadItemBlock(CGUIParser& parser, ICGUIObject* widget);

}  // namespace qen
