#ifndef QUAVERA_PLATFORM_XML_CHARACTERS_H_
#define QUAVERA_PLATFORM_XML_CHARACTERS_H_

namespace ZQXML {

/// Whether XML 1.0 text may hold the character, as it stands or as a character reference.
bool IsXmlCharacter(char32_t code);

/// Whether an XML name may begin with the character, or hold it behind its beginning. The letters
/// are those of Appendix B of XML 1.0 up to its fourth edition, the ones that expat knows; later
/// editions allow more.
bool IsNameStart(char32_t code);
bool IsNameCharacter(char32_t code);

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_XML_CHARACTERS_H_
