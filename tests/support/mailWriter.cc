#include <cstdio>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "linux/MailMessageWriter.h"

// Writes a mail to standard output as an Internet message. Arguments: sender (or nothing),
// recipient, subject, attachment's type and name; the body is standard input up to the first zero
// byte, the attachment what follows it. A mail that cannot be written ends it with 1.
int main(int count, char** values) {
  const std::vector<std::string> words(values + 1, values + count);
  if (words.size() != 5) {
    return 2;
  }
  const std::string input{std::istreambuf_iterator<char>(std::cin), {}};
  const auto end = input.find('\0');
  MailMessage message{{words[1]}, words[2], input.substr(0, end), false, {}};
  if (end != std::string::npos) {
    MailAttachment attachment{{}, words[3], words[4]};
    for (const char byte : input.substr(end + 1)) {
      attachment.data.push_back(static_cast<std::byte>(byte));
    }
    message.attachments.push_back(std::move(attachment));
  }
  const auto text = MailMessageWriter::write(message, {words[0], {}, false});
  if (!text) {
    return 1;
  }
  std::cout << *text;
  return 0;
}
