#pragma once

#include <string>

// The folders of Scenarios change together with their rows, although no transaction holds both. A change
// leaves a mark beside the folders until it is through; what a program that died in between has left is
// brought in line with the rows when the schema is opened next.
namespace vellumark {

// A folder that comes about with the rows of a new Scenario. Throws platform::Error when it can't be made.
// Keep belongs behind the commit; without it nothing is left.
class MadeFolder {
 public:
    explicit MadeFolder(std::string folder);
    ~MadeFolder();
    MadeFolder(const MadeFolder&) = delete;
    MadeFolder& operator=(const MadeFolder&) = delete;

    void Keep();

 private:
    std::string folder_;
};

// A folder that is renamed with its Scenario, back again unless the rows are committed before Keep. Throws
// platform::Error when it can't be renamed.
class RenamedFolder {
 public:
    RenamedFolder(std::string from, std::string to);
    ~RenamedFolder();
    RenamedFolder(const RenamedFolder&) = delete;
    RenamedFolder& operator=(const RenamedFolder&) = delete;

    void Keep();

 private:
    std::string from_;
    std::string to_;
    bool kept_ = false;
};

// A folder that goes with its Scenario: set aside at once, back again unless the rows are committed before
// Remove. What can't be removed stays without a message.
class RemovedFolder {
 public:
    explicit RemovedFolder(std::string folder);
    ~RemovedFolder();
    RemovedFolder(const RemovedFolder&) = delete;
    RemovedFolder& operator=(const RemovedFolder&) = delete;

    void Remove();

 private:
    std::string folder_;
    bool removed_ = false;
};

// Brings the folders of the open schema in line with its Scenarios where a change was cut off. Needs an open
// Repository; does nothing while another program is at work on it.
void FinishFolderChanges();

}  // namespace vellumark
